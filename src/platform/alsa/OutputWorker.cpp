// The thread that hands on what has found no space, looks what becomes of it, and gives
// subscriptions back.

#include <algorithm>
#include <utility>

#include "platform/alsa/Output.h"

namespace platform::alsa {
namespace {

using std::chrono::milliseconds;

/// Enough for one destination in use while another is given back.
constexpr std::size_t mostSpares = 2;
/// How often it is looked what has become of what was sent, while that is not settled.
constexpr milliseconds lookInterval{25};
/// How often what has found no space is tried again.
constexpr milliseconds tryInterval{2};
/// How often a program that reads nothing is looked at.
constexpr milliseconds readingInterval{250};

}  // namespace

void Output::startWorker(const Lock&) {
    if (!worker_.joinable()) {
        worker_ = std::thread([this] { work(); });
    } else if (workerRests_) {
        changed_.notify_all();
    }
}

std::unique_ptr<Sender> Output::spareOrNew(Lock& lock) {
    std::unique_ptr<Sender> sender;
    if (!spares_.empty()) {
        sender = std::move(spares_.back());
        spares_.pop_back();
        return sender;
    }
    lock.unlock();
    sender = Sender::open(clientName_);
    lock.lock();
    return sender;
}

void Output::work() {
    Lock lock(mutex_);
    for (;;) {
        std::vector<ConnectionPtr> connections;
        connections.reserve(connections_.size());
        for (const auto& [handle, connection] : connections_) {
            connections.push_back(connection);
        }
        for (const ConnectionPtr& connection : connections) {
            tend(lock, *connection);
        }
        removeGone(lock);
        // From here on the mutex stays locked until it is waited: no news can fall between.
        std::optional<Time::Point> next;
        for (const auto& [handle, connection] : connections_) {
            const std::optional<Time::Point> look = nextLookAt(*connection);
            next = look ? std::min(next.value_or(*look), *look) : next;
        }
        if (end_ && !next) {
            break;
        }
        workerRests_ = !next || *next > timeNow() + lookInterval;
        if (next) {
            changed_.wait_until(lock, *next);
        } else {
            changed_.wait(lock);
        }
        workerRests_ = false;
    }
}

void Output::tend(Lock& lock, Connection& connection) {
    if (end_ && timeNow() >= *end_) {
        connection.waiting.clear();
        connection.bytesWaiting = 0;
    }
    advance(lock, connection);
    look(connection);
    if (isToBeClosed(connection)) {
        close(lock, connection);
    }
}

bool Output::isToBeClosed(const Connection& connection) const {
    if (connection.state != Connection::State::Open) {
        return false;
    }
    if (end_) {
        return connection.waiting.empty();
    }
    if (connection.isToBeSeenReadingAgain()) {
        const std::optional<FillLevel> level = connection.space->level();
        return !level || level->free > connection.freeWhenCut || !connection.sender->isSubscribed();
    }
    return connection.isCut() ||
           (connection.account.isSettled() && timeNow() - connection.lastUsed >= idleTime);
}

std::optional<Time::Point> Output::nextLookAt(const Connection& connection) const {
    if (!connection.waiting.empty() || (end_ && connection.state != Connection::State::Closed)) {
        return timeNow() + tryInterval;
    }
    if (end_) {
        return std::nullopt;  // also if it is not settled: there is nobody left to tell
    }
    if (connection.isToBeSeenReadingAgain() && connection.state == Connection::State::Open) {
        return timeNow() + readingInterval;
    }
    if (!connection.account.isSettled()) {
        return timeNow() + lookInterval;
    }
    return connection.state == Connection::State::Open
               ? std::optional(connection.lastUsed + idleTime)
               : std::nullopt;
}

void Output::close(Lock& lock, Connection& connection) {
    connection.state = Connection::State::Closing;
    std::unique_ptr<Sender> sender = std::move(connection.sender);
    connection.space.reset();
    const auto left =
        std::chrono::duration_cast<milliseconds>(end_.value_or(Time::Point()) - timeNow());
    const milliseconds patience = connection.isCut() ? milliseconds::zero()
                                  : end_             ? left
                                                     : milliseconds(longestDrain);
    lock.unlock();
    sender->unsubscribe(patience);
    lock.lock();
    connection.state = Connection::State::Closed;
    if (connection.isCut()) {
        onNews_();
    }
    if (spares_.size() < mostSpares) {
        spares_.push_back(std::move(sender));
    }
    changed_.notify_all();
    lock.unlock();
    sender.reset();  // closes the client that is too many
    lock.lock();
}

void Output::removeGone(const Lock&) {
    for (auto connection = connections_.begin(); connection != connections_.end();) {
        const bool isOver = connection->second->hasGone && !connection->second->isAskedFor &&
                            connection->second->state == Connection::State::Closed;
        connection = isOver ? connections_.erase(connection) : std::next(connection);
    }
}

void Output::end() {
    Lock lock(mutex_);
    if (!end_) {
        end_ = timeNow() + longestDrain;
    }
    changed_.notify_all();
    if (!worker_.joinable()) {
        return;
    }
    lock.unlock();
    worker_.join();
}

}  // namespace platform::alsa
