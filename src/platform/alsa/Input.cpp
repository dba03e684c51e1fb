#include "platform/alsa/Input.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/alsa/MessageSplitter.h"

namespace platform::alsa {
namespace {

constexpr int portsOfClient = 254;

constexpr unsigned int sourceCapabilities = SND_SEQ_PORT_CAP_READ | SND_SEQ_PORT_CAP_SUBS_READ;
constexpr unsigned int destinationCapabilities =
    SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_SUBS_WRITE;

}  // namespace

Input::Input(std::string clientName)
    : clientName_(std::move(clientName)), wakeUp_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

Input::~Input() {
    endThread();
    if (wakeUp_ >= 0) {
        ::close(wakeUp_);
    }
}

int Input::client() const {
    const Lock lock(mutex_);
    return sequencer_ == nullptr ? -1 : snd_seq_client_id(sequencer_.get());
}

bool Input::openClient(const Lock&) {
    if (sequencer_ == nullptr) {
        sequencer_ = openSequencer(clientName_, SND_SEQ_OPEN_DUPLEX);
        if (sequencer_ != nullptr) {
            snd_seq_set_client_pool_input(sequencer_.get(), largestInputPool);
        }
    }
    return sequencer_ != nullptr && wakeUp_ >= 0 && decoder_ != nullptr && encoder_ != nullptr;
}

int Input::createPort(std::string_view name, unsigned int capabilities) {
    snd_seq_port_info_t* info = nullptr;
    snd_seq_port_info_alloca(&info);
    snd_seq_port_info_set_name(info, std::string(name).c_str());
    snd_seq_port_info_set_capability(info, capabilities);
    snd_seq_port_info_set_type(info, SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_SOFTWARE |
                                         SND_SEQ_PORT_TYPE_APPLICATION);
    snd_seq_port_info_set_midi_channels(info, 16);
    snd_seq_port_info_set_port_specified(info, 1);
    // Numbers go round: what still waits to be read for a port that was closed must not be taken
    // for something of the next one.
    for (int tries = 0; tries < portsOfClient; ++tries) {
        const int number = nextPort_;
        nextPort_ = (nextPort_ + 1) % portsOfClient;
        snd_seq_port_info_set_port(info, number);
        if (ports_.count(number) == 0 && snd_seq_create_port(sequencer_.get(), info) >= 0) {
            return number;
        }
    }
    return -1;
}

int Input::open(const Lock& lock, std::string_view name, unsigned int capabilities, Port port) {
    if (!openClient(lock)) {
        return -1;
    }
    const int number = createPort(name, capabilities);
    if (number >= 0) {
        const bool takes = port.read != nullptr;
        ports_.emplace(number, std::move(port));
        if (takes) {
            startThread(lock);
        }
    }
    return number;
}

int Input::openInput(std::string_view name, MIDIReadProc read, void* readProcRefCon) {
    const Lock lock(mutex_);
    return open(lock, name, SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_NO_EXPORT,
                {read, readProcRefCon, false, {}});
}

int Input::publishSource(std::string_view name) {
    const Lock lock(mutex_);
    return open(lock, name, sourceCapabilities, {});
}

int Input::publishDestination(std::string_view name, MIDIReadProc read, void* readProcRefCon) {
    const Lock lock(mutex_);
    return open(lock, name, destinationCapabilities, {read, readProcRefCon, true, {}});
}

int Input::connect(int port, const Address& source, void* srcConnRefCon) {
    const Lock lock(mutex_);
    const auto found = ports_.find(port);
    if (found == ports_.end()) {
        return -ENOENT;
    }
    if (found->second.connections.count(source) == 0) {
        const int result = snd_seq_connect_from(sequencer_.get(), port, source.client, source.port);
        if (result < 0) {
            return result;
        }
    }
    found->second.connections.insert_or_assign(source, srcConnRefCon);
    return 0;
}

int Input::disconnect(int port, const Address& source) {
    const Lock lock(mutex_);
    const auto found = ports_.find(port);
    if (found == ports_.end() || found->second.connections.erase(source) == 0) {
        return -ENOENT;
    }
    const int result = snd_seq_disconnect_from(sequencer_.get(), port, source.client, source.port);
    return std::min(result, 0);
}

bool Input::rename(int port, std::string_view name) {
    const Lock lock(mutex_);
    snd_seq_port_info_t* info = nullptr;
    snd_seq_port_info_alloca(&info);
    if (ports_.count(port) == 0 || snd_seq_get_port_info(sequencer_.get(), port, info) < 0) {
        return false;
    }
    snd_seq_port_info_set_name(info, std::string(name).c_str());
    return snd_seq_set_port_info(sequencer_.get(), port, info) >= 0;
}

bool Input::hide(int port, Direction direction, bool isHidden) {
    const Lock lock(mutex_);
    snd_seq_port_info_t* info = nullptr;
    snd_seq_port_info_alloca(&info);
    if (ports_.count(port) == 0 || snd_seq_get_port_info(sequencer_.get(), port, info) < 0) {
        return false;
    }
    const unsigned int shown =
        direction == Direction::Source ? sourceCapabilities : destinationCapabilities;
    snd_seq_port_info_set_capability(info, isHidden ? shown | SND_SEQ_PORT_CAP_NO_EXPORT : shown);
    return snd_seq_set_port_info(sequencer_.get(), port, info) >= 0;
}

void Input::give(int port, const MIDIPacketList& list) {
    const std::lock_guard giving(giveMutex_);
    {
        const Lock lock(mutex_);
        if (ports_.count(port) == 0) {
            return;
        }
    }
    const auto take = [&](std::span<const std::uint8_t> message) {
        snd_seq_event_t event{};
        if (toEvent(*encoder_, message, event)) {
            event.source.port = static_cast<unsigned char>(port);
            event.dest = {SND_SEQ_ADDRESS_SUBSCRIBERS, SND_SEQ_ADDRESS_UNKNOWN};
            // Once: some of the listeners may have it when another has no space.
            snd_seq_event_output_direct(sequencer_.get(), &event);
        }
    };
    MessageSplitter splitter;
    forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
        splitter.addPacket(bytes, take);
    });
    splitter.flush(take);
}

void Input::close(int port) {
    Lock lock(mutex_);
    if (ports_.erase(port) == 0) {
        return;
    }
    snd_seq_delete_port(sequencer_.get(), port);
    if (runningThread_ != std::this_thread::get_id()) {
        callbackEnded_.wait(lock, [&] { return runningCallback_ != port; });
    }
}

}  // namespace platform::alsa
