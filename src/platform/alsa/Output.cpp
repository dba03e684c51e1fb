#include "platform/alsa/Output.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/alsa/clientPool.h"
#include "platform/alsa/rawDevice.h"

namespace platform::alsa {
namespace {

using std::chrono::milliseconds;

/// Is another program in the way, for now?
bool isHeld(int error) {
    // -EAGAIN: the raw device is open elsewhere.
    return error == -EBUSY || error == -EAGAIN;
}

/// What tells how much the destination can take; the sender must live as long.
RoomKeeper::Level levelOf(const PortDescription& port, Sender& sender) {
    if (port.isHardware) {
        return [card = port.card, number = port.address.port] {
            return levelOfRawDevice(card, number);
        };
    }
    if (!port.isOfDevice) {
        return [client = port.address.client, &sender] {
            return levelOfPool(sender.descriptor(), client);
        };
    }
    return [] { return std::optional<FillLevel>(); };
}

}  // namespace

Output::Output(std::string clientName, OnTaking onTaking)
    : clientName_(std::move(clientName)), onTaking_(std::move(onTaking)) {}

Output::~Output() {
    end();
}

void Output::prepare() {
    const Lock lock(mutex_);
    if (spares_.empty() && !ending_) {
        if (std::unique_ptr<Sender> sender = Sender::open(clientName_)) {
            spares_.push_back(std::move(sender));
        }
    }
}

OSStatus Output::send(const Destination& to, const MIDIPacketList& list) {
    const std::lock_guard sending(sendMutex_);
    Lease* const lease = leaseFor(to);
    if (lease == nullptr) {
        return kMIDINoConnection;
    }
    const Outcome outcome = sendThrough(*lease, list);
    finish(outcome);
    return outcome == Outcome::Sent ? noErr : kMIDINoConnection;
}

Output::Lease* Output::leaseFor(const Destination& to) {
    Lock lock(mutex_);
    if (ending_ || codec_ == nullptr || notTaking_.count(to.handle) != 0) {
        return nullptr;
    }
    if (current_ == nullptr || current_->to.handle != to.handle) {
        queueCurrent(lock);
        if (!takeFromQueue(lock, to)) {
            const bool free = changed_.wait_for(
                lock, longestHold, [&] { return beingGivenBack_ != to.handle || ending_; });
            lock.unlock();
            Outcome outcome = Outcome::NotTaken;
            std::unique_ptr<Lease> lease = free ? subscribe(to, outcome) : nullptr;
            if (outcome == Outcome::NotTaken) {
                reportNotTaken(to);
            }
            lock.lock();
            current_ = std::move(lease);
            if (ending_) {
                return nullptr;
            }
        }
    }
    if (current_ != nullptr) {
        current_->isBusy = true;
        startWorker(lock);
    }
    return current_.get();
}

bool Output::takeFromQueue(const Lock&, const Destination& to) {
    const auto queued = std::find_if(queue_.begin(), queue_.end(), [&](const auto& lease) {
        return lease->to.handle == to.handle && !lease->isStalled;
    });
    if (queued == queue_.end()) {
        return false;
    }
    current_ = std::move(*queued);
    queue_.erase(queued);
    return true;
}

std::unique_ptr<Output::Lease> Output::subscribe(const Destination& to, Outcome& outcome) {
    std::unique_ptr<Sender> sender = spareOrNew();
    if (sender == nullptr) {
        outcome = Outcome::Gone;
        return nullptr;
    }
    const auto giveUp = std::chrono::steady_clock::now() + longestHold;
    // A bus is there for many programs at a time.
    bool exclusively = !to.port.isBus;
    int result = sender->subscribe(to.port.address, exclusively);
    while (isHeld(result) && std::chrono::steady_clock::now() < giveUp) {
        if (exclusively && result == -EBUSY) {
            exclusively = false;
        } else {
            std::this_thread::sleep_for(milliseconds(10));
        }
        result = sender->subscribe(to.port.address, exclusively);
    }
    if (result < 0) {
        outcome = isHeld(result) ? Outcome::NotTaken : Outcome::Gone;
        const Lock lock(mutex_);
        spares_.push_back(std::move(sender));
        return nullptr;
    }
    outcome = Outcome::Sent;
    RoomKeeper room(levelOf(to.port, *sender));
    return std::make_unique<Lease>(
        Lease{to, std::move(sender), exclusively, std::move(room), {}, {}});
}

Output::Outcome Output::sendThrough(Lease& lease, const MIDIPacketList& list) {
    Outcome outcome = Outcome::Sent;
    const auto take = [&](std::span<const std::uint8_t> message) {
        if (outcome == Outcome::Sent) {
            outcome = sendMessage(lease, message);
        }
    };
    forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
        lease.splitter.add(bytes, take);
    });
    lease.splitter.flush(take);
    return outcome;
}

Output::Outcome Output::sendMessage(Lease& lease, std::span<const std::uint8_t> message) {
    snd_seq_event_t event{};
    if (!toEvent(*codec_, message, event)) {
        return Outcome::Sent;
    }
    const bool isProgram = !lease.to.port.isOfDevice;
    if (isProgram || !lease.isExclusive) {
        lease.room.forgetLevel();
    }
    if (!lease.room.waitFor(isProgram ? cellsFor(message.size()) : message.size())) {
        return Outcome::NotTaken;
    }
    const auto giveUp = std::chrono::steady_clock::now() + RoomKeeper::longestStandstill;
    for (;;) {
        const int result = lease.sender->send(event);
        if (result == 0) {
            return Outcome::Sent;
        }
        if (result != -EAGAIN) {
            return Outcome::Gone;
        }
        if (std::chrono::steady_clock::now() >= giveUp) {
            return Outcome::NotTaken;
        }
        std::this_thread::sleep_for(milliseconds(2));
    }
}

void Output::finish(Outcome outcome) {
    Lock lock(mutex_);
    current_->isBusy = false;
    current_->lastUsed = std::chrono::steady_clock::now();
    if (current_->hasGone || outcome == Outcome::Gone) {
        queueCurrent(lock);
    } else if (outcome == Outcome::NotTaken) {
        const MIDIEndpointRef handle = current_->to.handle;
        current_->isStalled = true;
        current_->splitter.reset();
        current_->room.forgetLevel();
        const std::optional<FillLevel> level = current_->room.level();
        current_->roomWhenStalled = level ? level->room : 0;
        stalled_.push_back(std::move(current_));
        notTaking_.insert(handle);
        lock.unlock();
        onTaking_(handle, false);
    }
    changed_.notify_all();
}

void Output::reportNotTaken(const Destination& to) {
    {
        const Lock lock(mutex_);
        if (ending_) {
            return;
        }
        held_.push_back(to);
        notTaking_.insert(to.handle);
        startWorker(lock);
    }
    changed_.notify_all();
    onTaking_(to.handle, false);
}

void Output::forget(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    notTaking_.erase(destination);
    held_.erase(std::remove_if(held_.begin(), held_.end(),
                               [&](const auto& held) { return held.handle == destination; }),
                held_.end());
    for (std::unique_ptr<Lease>& lease : stalled_) {
        if (lease->to.handle == destination) {
            queue_.push_back(std::move(lease));
        }
    }
    stalled_.erase(std::remove(stalled_.begin(), stalled_.end(), nullptr), stalled_.end());
    if (current_ != nullptr && current_->to.handle == destination) {
        current_->hasGone = true;
        if (!current_->isBusy) {
            queueCurrent(lock);
        }
    }
    changed_.notify_all();
}

}  // namespace platform::alsa
