#include "platform/alsa/Output.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/alsa/clientPool.h"
#include "platform/alsa/rawDevice.h"

namespace platform::alsa {
namespace {

using std::chrono::milliseconds;
using Trouble = Delivery::Trouble;

/// How long room is waited for before it is looked for again.
constexpr milliseconds betweenTries{2};

/// Is another program in the way, for now?
bool isHeld(int error) {
    // -EAGAIN: the raw device is open elsewhere.
    return error == -EBUSY || error == -EAGAIN;
}

/// What tells how much the destination can take; the sender must live as long.
RoomKeeper::Level levelOf(const PortDescription& port, const Sender& sender) {
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

/// A bus is there for many programs at a time, any other destination is kept to oneself where that
/// can be had.
int subscribe(Sender& sender, const PortDescription& port, bool& exclusively) {
    exclusively = !port.isBus;
    const int result = sender.subscribe(port.address, exclusively);
    if (result != -EBUSY || !exclusively) {
        return result;
    }
    exclusively = false;
    return sender.subscribe(port.address, false);
}

/// Who keeps others from sending there; empty where that is not known.
std::string programInTheWay(const Sender& sender, const PortDescription& port) {
    const std::vector<std::string> names =
        programsConnectedTo(sender.sequencer(), port.address, Direction::Destination);
    if (!names.empty()) {
        return names.front();
    }
    return port.isHardware ? programThatHolds(port.card, port.address.port) : std::string();
}

std::size_t bytesIn(const MIDIPacketList& list) {
    std::size_t count = 0;
    forEachPacket(
        list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) { count += bytes.size(); });
    return count;
}

}  // namespace

Output::Output(std::string clientName, std::function<void()> onNews)
    : clientName_(std::move(clientName)), onNews_(std::move(onNews)) {}

Output::~Output() {
    end();
}

void Output::prepare() {
    Lock lock(mutex_);
    if (spares_.empty() && !end_) {
        if (std::unique_ptr<Sender> sender = spareOrNew(lock)) {
            spares_.push_back(std::move(sender));
        }
    }
}

OSStatus Output::send(const Destination& to, const MIDIPacketList& list) {
    Lock lock(mutex_);
    if (end_ || codec_ == nullptr) {
        return kMIDINoConnection;
    }
    const RoadPtr road = roadTo(lock, to);
    road->account.handOver(bytesIn(list), timeNow());
    if (!road->isCut()) {
        put(*road, list);
        startWorker(lock);
        const Time::Point end = timeNow() + longestCall;
        for (advance(lock, *road); !road->waiting.empty(); advance(lock, *road)) {
            if (timeNow() >= end && road->bytesWaiting <= mostWaiting) {
                break;
            }
            changed_.wait_for(lock, betweenTries);
        }
    }
    if (road->isCut()) {
        road->account.end(road->hasGone ? Trouble::WentAway : road->cutBy, timeNow());
        return kMIDINoConnection;
    }
    road->lastUsed = timeNow();
    return noErr;
}

void Output::sendInVain(MIDIEndpointRef destination, const MIDIPacketList& list) {
    const Lock lock(mutex_);
    const auto found = roads_.find(destination);
    if (found != roads_.end()) {
        found->second->account.handOver(bytesIn(list), timeNow());
        found->second->account.end(Trouble::WentAway, timeNow());
        cut(*found->second, Trouble::WentAway);
    }
}

Output::RoadPtr Output::roadTo(const Lock&, const Destination& to) {
    RoadPtr& road = roads_[to.handle];
    if (road == nullptr) {
        road = std::make_shared<Road>(to, timeNow());
    }
    return road;
}

void Output::put(Road& road, const MIDIPacketList& list) {
    const auto keep = [&](std::span<const std::uint8_t> message) {
        road.waiting.emplace_back(message.begin(), message.end());
        road.bytesWaiting += message.size();
    };
    forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
        road.splitter.addPacket(bytes, keep);
    });
    road.splitter.flush(keep);
    if (road.waiting.empty()) {
        road.account.acceptAll();
    }
}

void Output::advance(Lock& lock, Road& road) {
    if (road.isCut()) {
        return;
    }
    if (road.state == Road::State::Closed && !road.waiting.empty()) {
        open(lock, road);
    }
    if (road.state == Road::State::Open && !road.isCut()) {
        pump(road);
    }
}

void Output::open(Lock& lock, Road& road) {
    road.state = Road::State::Opening;
    std::unique_ptr<Sender> sender = spareOrNew(lock);
    const PortDescription port = road.to.port;
    lock.unlock();
    bool exclusively = false;
    int result = -ENODEV;
    std::string inTheWay;
    if (sender != nullptr) {
        const Time::Point giveUp = timeNow() + longestHold;
        while (isHeld(result = subscribe(*sender, port, exclusively)) && timeNow() < giveUp) {
            std::this_thread::sleep_for(milliseconds(10));
        }
        if (isHeld(result)) {
            inTheWay = programInTheWay(*sender, port);
        }
    }
    lock.lock();
    if (result == 0) {
        road.room.emplace(levelOf(port, *sender));
        road.sender = std::move(sender);
        road.isExclusive = exclusively;
        road.levelWasSeen = false;
        road.state = Road::State::Open;
        road.lastUsed = timeNow();
    } else {
        if (sender != nullptr) {
            spares_.push_back(std::move(sender));
        }
        road.state = Road::State::Closed;
        cut(road, isHeld(result) ? Trouble::InUse : Trouble::WentAway, inTheWay);
    }
    changed_.notify_all();
}

void Output::pump(Road& road) {
    while (!road.waiting.empty()) {
        const std::vector<std::uint8_t>& message = road.waiting.front();
        snd_seq_event_t event{};
        if (toEvent(*codec_, message, event)) {
            if (road.to.isProgram() || !road.isExclusive) {
                road.room->forgetLevel();
            }
            if (!road.room->take(road.to.isProgram() ? cellsFor(message.size()) : message.size())) {
                return;
            }
            const int result = road.sender->send(event);
            if (result == -EAGAIN) {
                road.room->forgetLevel();
                return;
            }
            if (result < 0) {
                cut(road, Trouble::WentAway);
                return;
            }
        }
        road.account.accept(message, timeNow());
        road.bytesWaiting -= message.size();
        road.waiting.pop_front();
    }
    road.account.acceptAll();
}

void Output::look(Road& road) {
    const bool wasSettled = road.account.isSettled();
    if (wasSettled || road.isCut()) {
        return;
    }
    if (road.state == Road::State::Open) {
        const std::optional<FillLevel> level =
            road.to.port.isHardware ? road.room->level() : std::nullopt;
        // The level first: so it is that of a destination that is still there.
        if (!road.sender->isConnected() || (!level && road.levelWasSeen)) {
            cut(road, Trouble::WentAway);
            return;
        }
        road.levelWasSeen = level.has_value();
        road.account.see(level ? level->whole - std::min(level->whole, level->room) : 0, timeNow());
    }
    if (road.state == Road::State::Closed && road.waiting.empty()) {
        road.account.see(0, timeNow());  // half a message, which waits for its other half
    }
    road.account.pass(timeNow());
    if (road.account.trouble() != Trouble::None) {
        cut(road, road.account.trouble());
    } else if (road.account.isSettled() && road.isAskedFor) {
        onNews_();
    }
}

void Output::cut(Road& road, Trouble trouble, std::string program) {
    if (road.isCut()) {
        return;
    }
    road.account.end(trouble, timeNow(), std::move(program));
    road.cutBy = trouble;
    road.waiting.clear();
    road.bytesWaiting = 0;
    road.splitter.reset();
    if (road.state == Road::State::Open) {
        road.room->forgetLevel();
        const std::optional<FillLevel> level = road.room->level();
        road.roomWhenCut = level ? level->room : 0;
    }
    someWentOrCame_ = someWentOrCame_ || road.isOffline();
    changed_.notify_all();
    onNews_();
}

void Output::reopen(Road& road) {
    someWentOrCame_ = someWentOrCame_ || road.isOffline();
    road.cutBy = Trouble::None;
    if (road.isAskedFor && !road.lastDelivery) {
        road.lastDelivery = road.account.at(timeNow());
    }
    road.account = Account(timeNow());
}

void Output::forget(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    const auto found = roads_.find(destination);
    if (found != roads_.end()) {
        cut(*found->second, Trouble::WentAway);
        found->second->hasGone = true;
        removeGone(lock);
    }
    changed_.notify_all();
}

bool Output::isOffline(MIDIEndpointRef destination) const {
    const Lock lock(mutex_);
    const auto found = roads_.find(destination);
    return found != roads_.end() && found->second->isOffline();
}

void Output::beginDelivery(const Destination& to, bool hasGone) {
    const Lock lock(mutex_);
    for (auto& [handle, road] : roads_) {
        road->isAskedFor = road->isAskedFor && !(road->hasGone && handle != to.handle);
    }
    removeGone(lock);
    Road& road = *roadTo(lock, to);
    road.isAskedFor = true;
    if (road.cutBy == Trouble::InUse) {
        reopen(road);
    }
    road.lastDelivery.reset();
    road.account = Account(timeNow(), road.bytesWaiting);
    if (hasGone || road.hasGone) {
        road.account.end(Trouble::WentAway, timeNow());
        cut(road, Trouble::WentAway);  // nothing may go on waiting for it
        road.hasGone = true;
    }
}

Delivery Output::delivery(MIDIEndpointRef destination) const {
    const Lock lock(mutex_);
    const auto found = roads_.find(destination);
    if (found == roads_.end()) {
        return {};
    }
    return found->second->lastDelivery ? *found->second->lastDelivery
                                       : found->second->account.at(timeNow());
}

void Output::abandonDelivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    const auto found = roads_.find(destination);
    if (found == roads_.end()) {
        return;
    }
    Road& road = *found->second;
    look(road);
    if (!road.account.hasAllLeft()) {
        cut(road, Trouble::TakesNothing);
    }
}

bool Output::takeNews(bool mayOpen) {
    const Lock lock(mutex_);
    for (auto& [handle, road] : roads_) {
        if (mayOpen && road->cutBy != Trouble::None && !road->hasGone &&
            road->state == Road::State::Closed) {
            reopen(*road);
        }
    }
    return std::exchange(someWentOrCame_, false);
}

}  // namespace platform::alsa
