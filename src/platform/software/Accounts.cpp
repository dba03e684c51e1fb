// What became of what was sent to each destination. All of it is taken at once, or none.

#include <utility>

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {

using Trouble = platform::Delivery::Trouble;

namespace {

std::uint64_t bytesIn(const MIDIPacketList& list) {
    std::uint64_t count = 0;
    forEachPacket(list, [&count](std::uint64_t, std::span<const std::uint8_t> bytes) {
        count += bytes.size();
    });
    return count;
}

}  // namespace

void SoftwareMidiService::beginDelivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    Account& account = accounts_[destination];
    account.delivery = {};
    if (!present_.contains(destination)) {
        account.delivery.trouble = Trouble::WentAway;
    }
}

Delivery SoftwareMidiService::delivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    const auto account = accounts_.find(destination);
    return account == accounts_.end() ? platform::Delivery{} : account->second.delivery;
}

void SoftwareMidiService::watchDelivery(
    MIDIEndpointRef destination, std::function<void(const platform::Delivery&)> whenSettled) {
    const Lock lock(mutex_);
    Account& account = accounts_[destination];
    account.whenSettled = std::move(whenSettled);
    if (account.whenSettled) {
        wakeUp();
    }
}

OSStatus SoftwareMidiService::accept(MIDIEndpointRef destination, const MIDIPacketList& list) {
    Lock lock(mutex_);
    if (!present_.contains(destination)) {
        return lose(lock, destination, list);
    }
    platform::Delivery& delivery = accounts_[destination].delivery;
    delivery.handedOver += bytesIn(list);
    delivery.left = delivery.handedOver;
    deliverTo(lock, destination, list);
    return noErr;
}

OSStatus SoftwareMidiService::lose(const Lock&, MIDIEndpointRef destination,
                                   const MIDIPacketList& list) {
    platform::Delivery& delivery = accounts_[destination].delivery;
    delivery.handedOver += bytesIn(list);
    delivery.trouble = Trouble::WentAway;
    return kMIDIUnknownEndpoint;
}

/// The watches, each with what it is told: every account is settled.
std::vector<std::function<void()>> SoftwareMidiService::dueWatches(const Lock&) {
    std::vector<std::function<void()>> due;
    for (auto& [handle, account] : accounts_) {
        if (account.whenSettled) {
            due.emplace_back([watch = std::exchange(account.whenSettled, nullptr),
                              delivery = account.delivery] { watch(delivery); });
        }
    }
    return due;
}

}  // namespace platform::software
