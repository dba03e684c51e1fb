#include "platform/alsa/Sender.h"

#include <utility>

namespace platform::alsa {

std::unique_ptr<Sender> Sender::open(const std::string& name) {
    Sequencer sequencer = openSequencer(name, SND_SEQ_OPEN_OUTPUT);
    if (sequencer == nullptr) {
        return nullptr;
    }
    const int port = createHiddenPort(*sequencer, name, 0);
    return port < 0 ? nullptr : std::unique_ptr<Sender>(new Sender(std::move(sequencer), port));
}

int Sender::subscribe(const Address& destination, bool exclusively) {
    snd_seq_port_subscribe_t* subscription = nullptr;
    snd_seq_port_subscribe_alloca(&subscription);
    const snd_seq_addr_t from{static_cast<unsigned char>(snd_seq_client_id(sequencer_.get())),
                              static_cast<unsigned char>(port_)};
    const snd_seq_addr_t to{static_cast<unsigned char>(destination.client),
                            static_cast<unsigned char>(destination.port)};
    snd_seq_port_subscribe_set_sender(subscription, &from);
    snd_seq_port_subscribe_set_dest(subscription, &to);
    snd_seq_port_subscribe_set_exclusive(subscription, exclusively ? 1 : 0);
    const int result = snd_seq_subscribe_port(sequencer_.get(), subscription);
    if (result >= 0) {
        destination_ = destination;
    }
    return result < 0 ? result : 0;
}

int Sender::unsubscribe() {
    const int result =
        snd_seq_disconnect_to(sequencer_.get(), port_, destination_.client, destination_.port);
    return result < 0 ? result : 0;
}

int Sender::send(snd_seq_event_t& event) {
    event.source.port = static_cast<unsigned char>(port_);
    event.dest = {SND_SEQ_ADDRESS_SUBSCRIBERS, SND_SEQ_ADDRESS_UNKNOWN};
    const int result = snd_seq_event_output_direct(sequencer_.get(), &event);
    return result < 0 ? result : 0;
}

}  // namespace platform::alsa
