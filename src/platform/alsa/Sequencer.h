#pragma once

// The sequencer's own things: handles of clients, addresses of ports. Errors are the kernel's
// numbers, negated, as the library returns them.

#include <alsa/asoundlib.h>

#include <memory>
#include <string>
#include <tuple>

namespace platform::alsa {

/// A port of a client, by the sequencer's numbers. They name nothing for long: the next device that
/// is plugged in may get them.
struct Address {
    int client = -1;
    int port = -1;

    bool operator==(const Address&) const = default;
    bool operator<(const Address& other) const {
        return std::tie(client, port) < std::tie(other.client, other.port);
    }
};

struct SequencerCloser {
    void operator()(snd_seq_t* sequencer) const { snd_seq_close(sequencer); }
};
/// A client of the sequencer.
using Sequencer = std::unique_ptr<snd_seq_t, SequencerCloser>;

/// A new client that never waits. None where there is no sequencer or it is denied: `error` gets
/// the error's number, and nothing is written to standard error. `streams` is SND_SEQ_OPEN_INPUT,
/// _OUTPUT or _DUPLEX.
[[nodiscard]] Sequencer openSequencer(const std::string& name, int streams, int* error = nullptr);

/// The client's descriptor. It must be open for what is to be waited for: POLLIN or POLLOUT.
[[nodiscard]] int descriptorOf(snd_seq_t& sequencer, short events);

/// The most cells that a client's pool of incoming events can have. The usual 200 are lost
/// altogether when a burst fills them.
inline constexpr std::size_t largestInputPool = 2000;

/// A port that other programs do not see in their lists. Returns its number, or an error.
[[nodiscard]] int createHiddenPort(snd_seq_t& sequencer, const std::string& name,
                                   unsigned int capabilities);

}  // namespace platform::alsa
