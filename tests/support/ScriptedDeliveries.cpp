// How the destinations of a ScriptedMidiService take what is sent to them, and what its sender is
// told of that.

#include <cstring>
#include <new>

#include "support/ScriptedMidiService.h"

namespace support {

using platform::Delivery;
using platform::MIDIPacketListPtr;
using platform::noErr;
using Trouble = Delivery::Trouble;

namespace {

std::uint64_t bytesIn(const platform::MIDIPacketList& list) {
    std::uint64_t count = 0;
    platform::forEachPacket(list, [&count](std::uint64_t, std::span<const std::uint8_t> bytes) {
        count += bytes.size();
    });
    return count;
}

MIDIPacketListPtr copyOf(const platform::MIDIPacketList& list) {
    const std::size_t size =
        platform::packetCountSize + list.numPackets * platform::packetHeaderSize + bytesIn(list);
    void* const memory = ::operator new(size);
    std::memcpy(memory, &list, size);
    return MIDIPacketListPtr(static_cast<platform::MIDIPacketList*>(memory));
}

}  // namespace

std::vector<std::uint8_t> Receiver::receivedBytes() const {
    std::vector<std::uint8_t> bytes;
    for (const RecordedPacketList& list : received_) {
        for (const RecordedPacket& packet : list) {
            bytes.insert(bytes.end(), packet.bytes.begin(), packet.bytes.end());
        }
    }
    return bytes;
}

void Receiver::setConnectedPrograms(std::vector<std::string> names) {
    connectedPrograms_ = std::move(names);
}

void Receiver::holdBack(std::chrono::milliseconds standstill) {
    standstill_ = standstill;
    service_.accounts_[destination_.handle()].standstill = standstill;
}

void Receiver::takeWaiting() {
    service_.takeWaiting(*this);
}

void Receiver::giveUp() {
    standstill_.reset();
    service_.abandonDelivery(destination_.handle());
}

void Receiver::settle() {
    service_.settle(destination_.handle());
}

Receiver& ScriptedMidiService::at(const platform::software::Destination& destination) {
    std::unique_ptr<Receiver>& receiver = receivers_[&destination];
    if (!receiver) {
        receiver.reset(new Receiver(*this, destination));
    }
    return *receiver;
}

platform::OSStatus ScriptedMidiService::MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                                                 const MIDIPacketList* list) {
    constexpr std::string_view operation = "MIDISend";
    const OSStatus failed = begin({operation, destination});
    if (failed != noErr) {
        if (list != nullptr) {
            accounts_[destination].keptBack += bytesIn(*list);
            refuse(destination, failed == platform::kMIDIUnknownEndpoint ? Trouble::WentAway
                                                                         : Trouble::TakesNothing);
        }
        return failed;
    }
    if (list == nullptr) {
        misuse(operation, "no packet list for", destination);
    }
    const platform::software::Destination* const device = this->destination(destination);
    if (device == nullptr || list == nullptr || !isOpen(port, false)) {
        return judged(operation, destination,
                      SoftwareMidiService::MIDISend(port, destination, list));
    }
    return take(at(*device), destination, *list);
}

/// A device takes a list, lets it wait, or is not to be had.
platform::OSStatus ScriptedMidiService::take(Receiver& receiver, MIDIEndpointRef destination,
                                             const MIDIPacketList& list) {
    if (receiver.usedBy_) {
        refuse(destination, Trouble::InUse, *receiver.usedBy_);
    }
    Account& account = accounts_[destination];
    if (delivery(destination).trouble != Trouble::None) {
        account.keptBack += bytesIn(list);
        return platform::kMIDINoConnection;
    }
    account.isUnsettled = receiver.standstill_ || receiver.settlesLater_;
    if (receiver.standstill_) {
        account.keptBack += bytesIn(list);
        account.standstill = *receiver.standstill_;
        account.waiting.push_back(copyOf(list));
    } else {
        passOn(receiver, destination, list);
    }
    return noErr;
}

void ScriptedMidiService::passOn(Receiver& receiver, MIDIEndpointRef destination,
                                 const MIDIPacketList& list) {
    if (receiver.keepsReceived_) {
        receiver.received_.push_back(recordOf(list));
    }
    (void)accept(destination, list);
}

/// What waits is lost. The first trouble stays.
void ScriptedMidiService::refuse(MIDIEndpointRef destination, Trouble trouble,
                                 const std::string& program) {
    const Delivery known = delivery(destination);
    Account& account = accounts_[destination];
    const bool isFirst = known.trouble == Trouble::None;
    account.trouble = isFirst ? trouble : known.trouble;
    account.program = isFirst ? program : known.program;
    account.waiting.clear();
    wakeUp();
}

void ScriptedMidiService::takeWaiting(Receiver& receiver) {
    receiver.standstill_.reset();
    const MIDIEndpointRef destination = receiver.destination_.handle();
    Account& account = accounts_[destination];
    // What is taken may be answered by unplugging, or by holding back again.
    while (!account.waiting.empty() && !receiver.standstill_ && receiver.destination_.isPlugged()) {
        const MIDIPacketListPtr list = std::move(account.waiting.front());
        account.waiting.pop_front();
        account.keptBack -= bytesIn(*list);
        account.standstill = {};
        passOn(receiver, destination, *list);
    }
    if (!receiver.settlesLater_) {
        settle(destination);
    }
}

void ScriptedMidiService::settle(MIDIEndpointRef destination) {
    Account& account = accounts_[destination];
    if (account.waiting.empty()) {
        account.isUnsettled = false;
        wakeUp();
    }
}

std::vector<std::string> ScriptedMidiService::connectedPrograms(MIDIEndpointRef endpoint) {
    const platform::software::Destination* const device = destination(endpoint);
    return device == nullptr ? std::vector<std::string>() : at(*device).connectedPrograms_;
}

void ScriptedMidiService::beginDelivery(MIDIEndpointRef destination) {
    SoftwareMidiService::beginDelivery(destination);
    Account begun;
    begun.whenSettled = std::move(accounts_[destination].whenSettled);
    accounts_[destination] = std::move(begun);
}

Delivery ScriptedMidiService::delivery(MIDIEndpointRef destination) {
    Delivery delivery = SoftwareMidiService::delivery(destination);
    const auto found = accounts_.find(destination);
    if (found == accounts_.end()) {
        return delivery;
    }
    const Account& account = found->second;
    delivery.handedOver += account.keptBack;
    if (account.trouble != Trouble::None) {
        delivery.trouble = account.trouble;
        delivery.program = account.program;
    } else if (account.isUnsettled && this->destination(destination) == nullptr) {
        delivery.trouble = Trouble::WentAway;
    } else if (account.isUnsettled) {
        delivery.isSettled = false;
        delivery.standstill =
            account.waiting.empty() ? std::chrono::milliseconds(0) : account.standstill;
    }
    return delivery;
}

void ScriptedMidiService::watchDelivery(MIDIEndpointRef destination,
                                        std::function<void(const Delivery&)> whenSettled) {
    accounts_[destination].whenSettled = std::move(whenSettled);
    wakeUp();
}

void ScriptedMidiService::abandonDelivery(MIDIEndpointRef destination) {
    const auto account = accounts_.find(destination);
    if (account != accounts_.end() && !account->second.waiting.empty()) {
        refuse(destination, Trouble::TakesNothing);
    }
}

void ScriptedMidiService::dispatch() {
    if (std::this_thread::get_id() != mainThread_) {
        misuse("dispatch", "called on another thread than the main thread", 0);
    }
    std::vector<std::function<void()>> due;
    for (auto& [handle, account] : accounts_) {
        const Delivery known = delivery(handle);
        if (known.isSettled && account.whenSettled) {
            due.emplace_back(
                [watch = std::exchange(account.whenSettled, nullptr), known] { watch(known); });
        }
    }
    SoftwareMidiService::dispatch();
    for (const std::function<void()>& watch : due) {
        watch();
    }
}

}  // namespace support
