#include "platform/alsa/Sequencer.h"

#include "platform/alsa/SequencerNode.h"

namespace platform::alsa {

Sequencer openSequencer(const std::string& name, int streams, int* error) {
    snd_seq_t* opened = nullptr;
    // The library would write about a node that cannot be opened to standard error.
    int failed = tryToOpen(SequencerNode().path);
    if (failed == 0) {
        failed = -snd_seq_open(&opened, "hw", streams, SND_SEQ_NONBLOCK);
    }
    if (failed != 0) {
        if (error != nullptr) {
            *error = failed;
        }
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
