#include "midi/ReceiverSet.h"

#include <algorithm>

namespace midi {

void ReceiverSet::add(ZQMIDIReceiver* receiver) {
    const std::lock_guard lock(mutex_);
    const bool present = std::any_of(members_.begin(), members_.end(),
                                     [=](const Member& m) { return m.receiver == receiver; });
    if (receiver != nullptr && !present) {
        members_.push_back({++lastId_, receiver});
    }
}

void ReceiverSet::remove(ZQMIDIReceiver* receiver) {
    std::unique_lock lock(mutex_);
    std::erase_if(members_, [=](const Member& member) { return member.receiver == receiver; });
    if (!isDeliveringOn(std::this_thread::get_id())) {
        callEnded_.wait(lock, [=, this] { return !isCalling(receiver); });
    }
}

bool ReceiverSet::empty() const {
    const std::lock_guard lock(mutex_);
    return members_.empty();
}

void ReceiverSet::deliver(const platform::MIDIPacketList& list, const void* sender) {
    std::unique_lock lock(mutex_);
    const std::uint64_t newest = lastId_;
    // The members may be others after each call, so the place is found again by the ID.
    const Member* next = firstMemberAfter(0);
    while (next != nullptr && next->id <= newest) {
        const Member member = *next;
        const auto call =
            calls_.insert(calls_.end(), {member.receiver, std::this_thread::get_id()});
        lock.unlock();
        member.receiver->processMIDIPacketList(list, sender);
        lock.lock();
        calls_.erase(call);
        callEnded_.notify_all();
        next = firstMemberAfter(member.id);
    }
}

const ReceiverSet::Member* ReceiverSet::firstMemberAfter(std::uint64_t id) const {
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [=](const Member& member) { return member.id > id; });
    return found == members_.end() ? nullptr : &*found;
}

bool ReceiverSet::isCalling(const ZQMIDIReceiver* receiver) const {
    return std::any_of(calls_.begin(), calls_.end(),
                       [=](const Call& call) { return call.receiver == receiver; });
}

bool ReceiverSet::isDeliveringOn(std::thread::id thread) const {
    return std::any_of(calls_.begin(), calls_.end(),
                       [=](const Call& call) { return call.thread == thread; });
}

}  // namespace midi
