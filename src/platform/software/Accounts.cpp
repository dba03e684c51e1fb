// What became of what was sent to each destination.

#include <cstring>
#include <new>
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

MIDIPacketListPtr copyOf(const MIDIPacketList& list) {
    const std::size_t size = packetCountSize + list.numPackets * packetHeaderSize + bytesIn(list);
    void* const memory = ::operator new(size);
    std::memcpy(memory, &list, size);
    return MIDIPacketListPtr(static_cast<MIDIPacketList*>(memory));
}

}  // namespace

void Destination::holdBack(std::chrono::milliseconds standstill) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    standstill_ = standstill;
    if (SoftwareMidiService::Account* const account = service_.waitingAt(lock, *this)) {
        account->delivery.standstill = standstill;
    }
}

void Destination::takeWaiting() {
    SoftwareMidiService::Lock lock(service_.mutex_);
    service_.takeWaiting(lock, *this);
}

void Destination::giveUp() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    standstill_.reset();
    if (SoftwareMidiService::Account* const account = service_.waitingAt(lock, *this)) {
        service_.fail(lock, *account, Trouble::TakesNothing);
    }
}

void Destination::keepInUse(std::string program) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    usedBy_ = std::move(program);
}

void Destination::freeAgain() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    usedBy_.reset();
}

void Destination::settleLater() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    settlesLater_ = true;
}

void Destination::settle() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    service_.settle(lock, *this);
}

void SoftwareMidiService::beginDelivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    Account& account = accounts_[destination];
    account.delivery = {};
    account.waiting.clear();
    if (!present_.contains(destination)) {
        fail(lock, account, Trouble::WentAway);
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
    if (account.whenSettled && account.delivery.isSettled) {
        wakeUp();
    }
}

void SoftwareMidiService::abandonDelivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    const auto account = accounts_.find(destination);
    if (account != accounts_.end() && !account->second.waiting.empty()) {
        fail(lock, account->second, Trouble::TakesNothing);
    }
}

/// The account of a destination for which something waits.
SoftwareMidiService::Account* SoftwareMidiService::waitingAt(const Lock&,
                                                             const Destination& device) {
    const auto account = accounts_.find(device.handle_);
    return account == accounts_.end() || account->second.waiting.empty() ? nullptr
                                                                         : &account->second;
}

/// A device takes a list, lets it wait, or is not to be had.
OSStatus SoftwareMidiService::accept(Lock& lock, const Destination& device,
                                     const MIDIPacketList& list) {
    Account& account = accounts_[device.handle_];
    platform::Delivery& delivery = account.delivery;
    delivery.handedOver += bytesIn(list);
    if (device.usedBy_ && delivery.trouble == Trouble::None) {
        delivery.program = *device.usedBy_;
        fail(lock, account, Trouble::InUse);
    }
    if (delivery.trouble != Trouble::None) {
        return kMIDINoConnection;
    }
    if (device.standstill_) {
        account.waiting.push_back(copyOf(list));
        delivery.standstill = *device.standstill_;
        delivery.isSettled = false;
        return noErr;
    }
    delivery.left = delivery.handedOver;
    delivery.isSettled = !device.settlesLater_;
    deliverTo(lock, device.handle_, list);
    return noErr;
}

/// A send that fails takes the destination's account with it.
void SoftwareMidiService::lose(const Lock& lock, MIDIEndpointRef destination,
                               const MIDIPacketList& list, OSStatus code) {
    Account& account = accounts_[destination];
    account.delivery.handedOver += bytesIn(list);
    fail(lock, account, code == kMIDIUnknownEndpoint ? Trouble::WentAway : Trouble::TakesNothing);
}

void SoftwareMidiService::fail(const Lock&, Account& account, Trouble trouble) {
    if (account.delivery.trouble == Trouble::None) {
        account.delivery.trouble = trouble;
    }
    account.delivery.isSettled = true;
    account.delivery.standstill = {};
    account.waiting.clear();
    wakeUp();
}

void SoftwareMidiService::takeWaiting(Lock& lock, Destination& device) {
    device.standstill_.reset();
    // What is taken may be answered by unplugging, or by holding back again.
    for (Account* account = waitingAt(lock, device); account != nullptr && !device.standstill_;
         account = waitingAt(lock, device)) {
        const MIDIPacketListPtr list = std::move(account->waiting.front());
        account->waiting.pop_front();
        account->delivery.left += bytesIn(*list);
        account->delivery.standstill = {};
        deliverTo(lock, device.handle_, *list);
    }
    if (!device.settlesLater_) {
        settle(lock, device);
    }
}

void SoftwareMidiService::settle(const Lock&, const Destination& device) {
    const auto account = accounts_.find(device.handle_);
    if (account != accounts_.end() && account->second.waiting.empty()) {
        account->second.delivery.isSettled = true;
        wakeUp();
    }
}

/// The watches of settled accounts, each with what it is told.
std::vector<std::function<void()>> SoftwareMidiService::dueWatches(const Lock&) {
    std::vector<std::function<void()>> due;
    for (auto& [handle, account] : accounts_) {
        if (account.delivery.isSettled && account.whenSettled) {
            due.emplace_back([watch = std::exchange(account.whenSettled, nullptr),
                              delivery = account.delivery] { watch(delivery); });
        }
    }
    return due;
}

}  // namespace platform::software
