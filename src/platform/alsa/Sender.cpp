#include "platform/alsa/Sender.h"

#include <utility>

#include "platform/alsa/Interruption.h"

namespace platform::alsa {
namespace {

snd_seq_addr_t addressOf(const Address& address) {
    return {static_cast<unsigned char>(address.client), static_cast<unsigned char>(address.port)};
}

}  // namespace

std::unique_ptr<Sender> Sender::open(const std::string& name) {
    Sequencer sequencer = openSequencer(name, SND_SEQ_OPEN_OUTPUT);
    if (sequencer == nullptr) {
        return nullptr;
    }
    const int port = createHiddenPort(*sequencer, name, 0);
    return port < 0 ? nullptr : std::unique_ptr<Sender>(new Sender(std::move(sequencer), port));
}

snd_seq_addr_t Sender::address() const {
    return {static_cast<unsigned char>(snd_seq_client_id(sequencer_.get())),
            static_cast<unsigned char>(port_)};
}

int Sender::subscribe(const Address& destination, bool exclusively) {
    snd_seq_port_subscribe_t* subscription = nullptr;
    snd_seq_port_subscribe_alloca(&subscription);
    const snd_seq_addr_t from = address();
    const snd_seq_addr_t to = addressOf(destination);
    snd_seq_port_subscribe_set_sender(subscription, &from);
    snd_seq_port_subscribe_set_dest(subscription, &to);
    snd_seq_port_subscribe_set_exclusive(subscription, exclusively ? 1 : 0);
    const int result = snd_seq_subscribe_port(sequencer_.get(), subscription);
    if (result >= 0) {
        destination_ = destination;
    }
    return result < 0 ? result : 0;
}

bool Sender::isSubscribed() const {
    snd_seq_port_subscribe_t* subscription = nullptr;
    snd_seq_port_subscribe_alloca(&subscription);
    const snd_seq_addr_t from = address();
    const snd_seq_addr_t to = addressOf(destination_);
    snd_seq_port_subscribe_set_sender(subscription, &from);
    snd_seq_port_subscribe_set_dest(subscription, &to);
    // While a device that has gone is being let go of, the subscription can still be there for
    // seconds, but the port is not; another one may be there when it has gone.
    snd_seq_port_info_t* port = nullptr;
    snd_seq_port_info_alloca(&port);
    return snd_seq_get_any_port_info(sequencer_.get(), destination_.client, destination_.port,
                                     port) >= 0 &&
           snd_seq_get_port_subscription(sequencer_.get(), subscription) >= 0;
}

void Sender::unsubscribe(std::chrono::milliseconds patience) {
    const Interruption interruption(patience);
    // What has gone by itself is let go of as well.
    snd_seq_disconnect_to(sequencer_.get(), port_, destination_.client, destination_.port);
}

int Sender::send(snd_seq_event_t& event) {
    event.source.port = static_cast<unsigned char>(port_);
    event.dest = {SND_SEQ_ADDRESS_SUBSCRIBERS, SND_SEQ_ADDRESS_UNKNOWN};
    const int result = snd_seq_event_output_direct(sequencer_.get(), &event);
    return result < 0 ? result : 0;
}

}  // namespace platform::alsa
