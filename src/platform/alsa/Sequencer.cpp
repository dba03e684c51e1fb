#include "platform/alsa/Sequencer.h"

#include <fcntl.h>
#include <unistd.h>

namespace platform::alsa {
namespace {

/// Whether the sequencer can be opened at all. Asking makes the system load it where it can; the
/// library would write about the failure to standard error.
bool isThere() {
    const int descriptor = open("/dev/snd/seq", O_RDWR | O_CLOEXEC);
    if (descriptor >= 0) {
        close(descriptor);
    }
    return descriptor >= 0;
}

}  // namespace

Sequencer openSequencer(const std::string& name, int streams) {
    snd_seq_t* opened = nullptr;
    if (!isThere() || snd_seq_open(&opened, "hw", streams, SND_SEQ_NONBLOCK) < 0) {
        return nullptr;
    }
    Sequencer sequencer(opened);
    snd_seq_set_client_name(opened, name.c_str());
    return sequencer;
}

int descriptorOf(snd_seq_t& sequencer, short events) {
    pollfd descriptor{};
    return snd_seq_poll_descriptors(&sequencer, &descriptor, 1, events) == 1 ? descriptor.fd : -1;
}

int createHiddenPort(snd_seq_t& sequencer, const std::string& name, unsigned int capabilities) {
    return snd_seq_create_simple_port(&sequencer, name.c_str(),
                                      capabilities | SND_SEQ_PORT_CAP_NO_EXPORT,
                                      SND_SEQ_PORT_TYPE_MIDI_GENERIC | SND_SEQ_PORT_TYPE_SOFTWARE |
                                          SND_SEQ_PORT_TYPE_APPLICATION);
}

}  // namespace platform::alsa
