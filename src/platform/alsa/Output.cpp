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

/// How long space is waited for before it is looked for again.
constexpr milliseconds betweenTries{2};

/// Is another program in the way, for now?
bool isHeld(int error) {
    // -EAGAIN: the raw device is open elsewhere.
    return error == -EBUSY || error == -EAGAIN;
}

/// What tells how much the destination can take; the sender must live as long.
SpaceGauge::Level levelOf(const PortDescription& port, const Sender& sender) {
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
    const ConnectionPtr connection = connectionTo(lock, to);
    connection->account.handOver(bytesIn(list), timeNow());
    if (!connection->isCut()) {
        put(*connection, list);
        startWorker(lock);
        const Time::Point end = timeNow() + longestCall;
        for (advance(lock, *connection); !connection->waiting.empty(); advance(lock, *connection)) {
            if (timeNow() >= end && connection->bytesWaiting <= mostWaiting) {
                break;
            }
            changed_.wait_for(lock, betweenTries);
        }
    }
    if (connection->isCut()) {
        connection->account.end(connection->hasGone ? Trouble::WentAway : connection->cutBy,
                                timeNow());
        return kMIDINoConnection;
    }
    connection->lastUsed = timeNow();
    return noErr;
}

void Output::sendInVain(MIDIEndpointRef destination, const MIDIPacketList& list) {
    const Lock lock(mutex_);
    const auto found = connections_.find(destination);
    if (found != connections_.end()) {
        found->second->account.handOver(bytesIn(list), timeNow());
        found->second->account.end(Trouble::WentAway, timeNow());
        cut(*found->second, Trouble::WentAway);
    }
}

Output::ConnectionPtr Output::connectionTo(const Lock&, const Destination& to) {
    ConnectionPtr& connection = connections_[to.handle];
    if (connection == nullptr) {
        connection = std::make_shared<Connection>(to, timeNow());
    }
    return connection;
}

void Output::put(Connection& connection, const MIDIPacketList& list) {
    const auto keep = [&](std::span<const std::uint8_t> message) {
        connection.waiting.emplace_back(message.begin(), message.end());
        connection.bytesWaiting += message.size();
    };
    forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
        connection.splitter.addPacket(bytes, keep);
    });
    connection.splitter.flush(keep);
    if (connection.waiting.empty()) {
        connection.account.acceptAll();
    }
}

void Output::advance(Lock& lock, Connection& connection) {
    if (connection.isCut()) {
        return;
    }
    if (connection.state == Connection::State::Closed && !connection.waiting.empty()) {
        open(lock, connection);
    }
    if (connection.state == Connection::State::Open && !connection.isCut()) {
        pump(connection);
    }
}

void Output::open(Lock& lock, Connection& connection) {
    connection.state = Connection::State::Opening;
    std::unique_ptr<Sender> sender = spareOrNew(lock);
    const PortDescription port = connection.to.port;
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
        connection.space.emplace(levelOf(port, *sender));
        connection.sender = std::move(sender);
        connection.isExclusive = exclusively;
        connection.levelWasSeen = false;
        connection.state = Connection::State::Open;
        connection.lastUsed = timeNow();
    } else {
        if (sender != nullptr) {
            spares_.push_back(std::move(sender));
        }
        connection.state = Connection::State::Closed;
        cut(connection, isHeld(result) ? Trouble::InUse : Trouble::WentAway, inTheWay);
    }
    changed_.notify_all();
}

void Output::pump(Connection& connection) {
    while (!connection.waiting.empty()) {
        const std::vector<std::uint8_t>& message = connection.waiting.front();
        snd_seq_event_t event{};
        if (toEvent(*codec_, message, event)) {
            if (connection.to.isProgram() || !connection.isExclusive) {
                connection.space->forgetLevel();
            }
            if (!connection.space->take(connection.to.isProgram() ? cellsFor(message.size())
                                                                  : message.size())) {
                return;
            }
            const int result = connection.sender->send(event);
            if (result == -EAGAIN) {
                connection.space->forgetLevel();
                return;
            }
            if (result < 0) {
                cut(connection, Trouble::WentAway);
                return;
            }
        }
        connection.account.accept(message, timeNow());
        connection.bytesWaiting -= message.size();
        connection.waiting.pop_front();
    }
    connection.account.acceptAll();
}

void Output::look(Connection& connection) {
    const bool wasSettled = connection.account.isSettled();
    if (wasSettled || connection.isCut()) {
        return;
    }
    if (connection.state == Connection::State::Open) {
        const std::optional<FillLevel> level =
            connection.to.port.isHardware ? connection.space->level() : std::nullopt;
        // The level first: so it is that of a destination that is still there.
        if (!connection.sender->isSubscribed() || (!level && connection.levelWasSeen)) {
            cut(connection, Trouble::WentAway);
            return;
        }
        connection.levelWasSeen = level.has_value();
        connection.account.see(level ? level->capacity - std::min(level->capacity, level->free) : 0,
                               timeNow());
    }
    if (connection.state == Connection::State::Closed && connection.waiting.empty()) {
        connection.account.see(0, timeNow());  // half a message, which waits for its other half
    }
    connection.account.pass(timeNow());
    if (connection.account.trouble() != Trouble::None) {
        cut(connection, connection.account.trouble());
    } else if (connection.account.isSettled() && connection.isAskedFor) {
        onNews_();
    }
}

void Output::cut(Connection& connection, Trouble trouble, std::string program) {
    if (connection.isCut()) {
        return;
    }
    connection.account.end(trouble, timeNow(), std::move(program));
    connection.cutBy = trouble;
    connection.waiting.clear();
    connection.bytesWaiting = 0;
    connection.splitter.reset();
    if (connection.state == Connection::State::Open) {
        connection.space->forgetLevel();
        const std::optional<FillLevel> level = connection.space->level();
        connection.freeWhenCut = level ? level->free : 0;
    }
    someWentOrCame_ = someWentOrCame_ || connection.isOffline();
    changed_.notify_all();
    onNews_();
}

void Output::reopen(Connection& connection) {
    someWentOrCame_ = someWentOrCame_ || connection.isOffline();
    connection.cutBy = Trouble::None;
    if (connection.isAskedFor && !connection.lastDelivery) {
        connection.lastDelivery = connection.account.at(timeNow());
    }
    connection.account = Account(timeNow());
}

void Output::forget(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    const auto found = connections_.find(destination);
    if (found != connections_.end()) {
        cut(*found->second, Trouble::WentAway);
        found->second->hasGone = true;
        removeGone(lock);
    }
    changed_.notify_all();
}

bool Output::isOffline(MIDIEndpointRef destination) const {
    const Lock lock(mutex_);
    const auto found = connections_.find(destination);
    return found != connections_.end() && found->second->isOffline();
}

void Output::beginDelivery(const Destination& to, bool hasGone) {
    const Lock lock(mutex_);
    for (auto& [handle, connection] : connections_) {
        connection->isAskedFor =
            connection->isAskedFor && !(connection->hasGone && handle != to.handle);
    }
    removeGone(lock);
    Connection& connection = *connectionTo(lock, to);
    connection.isAskedFor = true;
    if (connection.cutBy == Trouble::InUse) {
        reopen(connection);
    }
    connection.lastDelivery.reset();
    connection.account = Account(timeNow(), connection.bytesWaiting);
    if (hasGone || connection.hasGone) {
        connection.account.end(Trouble::WentAway, timeNow());
        cut(connection, Trouble::WentAway);  // nothing may go on waiting for it
        connection.hasGone = true;
    }
}

Delivery Output::delivery(MIDIEndpointRef destination) const {
    const Lock lock(mutex_);
    const auto found = connections_.find(destination);
    if (found == connections_.end()) {
        return {};
    }
    return found->second->lastDelivery ? *found->second->lastDelivery
                                       : found->second->account.at(timeNow());
}

void Output::abandonDelivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    const auto found = connections_.find(destination);
    if (found == connections_.end()) {
        return;
    }
    Connection& connection = *found->second;
    look(connection);
    if (!connection.account.hasAllLeft()) {
        cut(connection, Trouble::TakesNothing);
    }
}

bool Output::takeNews(bool mayOpen) {
    const Lock lock(mutex_);
    for (auto& [handle, connection] : connections_) {
        if (mayOpen && connection->cutBy != Trouble::None && !connection->hasGone &&
            connection->state == Connection::State::Closed) {
            reopen(*connection);
        }
    }
    return std::exchange(someWentOrCame_, false);
}

}  // namespace platform::alsa
