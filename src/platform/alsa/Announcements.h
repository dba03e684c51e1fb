#pragma once

#include <memory>
#include <set>
#include <string>
#include <utility>

#include "platform/alsa/Sequencer.h"

namespace platform::alsa {

/// The client that is told when ports come and go, and asks about them. For one thread at a time.
class Announcements {
public:
    struct News {
        bool changed = false;      ///< a port or client has come, gone or changed
        bool isLost = false;       ///< the sequencer itself has gone
        std::set<Address> exited;  ///< ports that have gone, whatever stands there now

        void add(const snd_seq_event_t& event);
    };

    /// Hears of everything from now on. None where there is no sequencer; `error` is its number
    /// then.
    [[nodiscard]] static std::unique_ptr<Announcements> open(const std::string& name, int& error);

    /// Adds what has been announced since. If there was too much of it to be kept, that counts as
    /// a change.
    void read(News& news);

    /// Becomes readable when there is something to read.
    [[nodiscard]] int descriptor() const { return descriptorOf(*sequencer_, POLLIN); }
    [[nodiscard]] snd_seq_t& sequencer() { return *sequencer_; }

private:
    explicit Announcements(Sequencer sequencer) : sequencer_(std::move(sequencer)) {}

    Sequencer sequencer_;
};

}  // namespace platform::alsa
