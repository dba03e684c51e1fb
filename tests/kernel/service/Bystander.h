#pragma once

#include <map>

#include "kernel/systemFiles.h"
#include "platform/alsa/Sequencer.h"

namespace kernel {

/// Another program that watches what the sequencer announces.
class Bystander {
public:
    Bystander()
        : sequencer_(platform::alsa::openSequencer("Bystander", SND_SEQ_OPEN_DUPLEX)),
          port_(snd_seq_create_simple_port(sequencer_.get(), "in", SND_SEQ_PORT_CAP_WRITE,
                                           SND_SEQ_PORT_TYPE_APPLICATION)) {
        snd_seq_set_client_pool_input(sequencer_.get(), 2000);
        snd_seq_connect_from(sequencer_.get(), port_, SND_SEQ_CLIENT_SYSTEM,
                             SND_SEQ_PORT_SYSTEM_ANNOUNCE);
    }

    /// How many events of each type were announced since the last call.
    std::map<int, int> seen() {
        std::map<int, int> counts;
        snd_seq_event_t* event = nullptr;
        for (int result = 0; (result = snd_seq_event_input(sequencer_.get(), &event)) != -EAGAIN;) {
            if (result < 0) {
                throw SystemFailure("reading announcements", -result);
            }
            ++counts[event->type];
        }
        return counts;
    }

private:
    platform::alsa::Sequencer sequencer_;
    int port_;
};

}  // namespace kernel
