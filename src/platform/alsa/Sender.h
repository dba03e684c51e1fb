#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include "platform/alsa/Sequencer.h"

namespace platform::alsa {

/// A client of the sequencer to send with, with one port that nobody else sees, subscribed to one
/// destination at a time. Results are 0 or the kernel's number, negated. For one thread at a time:
/// the kernel lets a client's calls wait for one another, and `unsubscribe` takes its time.
class Sender {
public:
    /// None where there is no sequencer.
    [[nodiscard]] static std::unique_ptr<Sender> open(const std::string& name);

    /// Opens a device's raw port if nobody else has: 0.1 ms. Exclusively, other programs are kept
    /// from connecting; -EBUSY if one is connected already.
    [[nodiscard]] int subscribe(const Address& destination, bool exclusively);

    /// Whether the subscription is still there, and what it is to.
    [[nodiscard]] bool isSubscribed() const;

    /// Waits until a device has taken what it was sent, but no longer than that; what it has not
    /// taken by then is thrown away. From a dead device the kernel would wait for 10 s.
    void unsubscribe(std::chrono::milliseconds patience);

    /// Hands the event to the destination that is subscribed, and to no other: if the port has gone
    /// the event is lost, whoever has the port's number now.
    int send(snd_seq_event_t& event);

    [[nodiscard]] int descriptor() const { return descriptorOf(*sequencer_, POLLOUT); }
    [[nodiscard]] snd_seq_t& sequencer() const { return *sequencer_; }

private:
    Sender(Sequencer sequencer, int port) : sequencer_(std::move(sequencer)), port_(port) {}

    [[nodiscard]] snd_seq_addr_t address() const;

    Sequencer sequencer_;
    int port_;
    Address destination_;
};

}  // namespace platform::alsa
