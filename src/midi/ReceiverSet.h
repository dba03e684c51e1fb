#pragma once

#include <condition_variable>
#include <cstdint>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

#include "midi/ZQMIDIReceiver.h"

namespace midi {

/// The receivers of an endpoint, each once, in the order in which they were added. Non-owning.
///
/// Safe to change on any thread while a list is being delivered, also by a receiver that is being
/// called. Who is added during a delivery hears from the next list on.
class ReceiverSet {
public:
    void add(ZQMIDIReceiver* receiver);

    /// When this returns, the receiver is not called any more and no call of it is running, so it
    /// can be destroyed. The one exception: made from within a delivery of this very set, the call
    /// does not wait for others (a receiver that removes itself would wait for its own end).
    void remove(ZQMIDIReceiver* receiver);

    [[nodiscard]] bool empty() const;

    /// Calls each receiver with the list. No lock is held during the calls.
    void deliver(const platform::MIDIPacketList& list, const void* sender);

private:
    struct Member {
        std::uint64_t id = 0;  // grows with every addition, so a delivery can find its place again
        ZQMIDIReceiver* receiver = nullptr;
    };
    struct Call {
        ZQMIDIReceiver* receiver = nullptr;
        std::thread::id thread;
    };
    [[nodiscard]] const Member* firstMemberAfter(std::uint64_t id) const;
    [[nodiscard]] bool isCalling(const ZQMIDIReceiver* receiver) const;
    [[nodiscard]] bool isDeliveringOn(std::thread::id thread) const;

    mutable std::mutex mutex_;
    std::condition_variable callEnded_;
    std::vector<Member> members_;
    std::list<Call> calls_;
    std::uint64_t lastId_ = 0;
};

}  // namespace midi
