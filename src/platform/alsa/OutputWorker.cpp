// The thread that hands on what has found no room, looks what becomes of it, and gives
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
/// How often what has found no room is tried again.
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
        std::vector<RoadPtr> roads;
        roads.reserve(roads_.size());
        for (const auto& [handle, road] : roads_) {
            roads.push_back(road);
        }
        for (const RoadPtr& road : roads) {
            tend(lock, *road);
        }
        removeGone(lock);
        // From here on the mutex stays locked until it is waited: no news can fall between.
        std::optional<Time::Point> next;
        for (const auto& [handle, road] : roads_) {
            const std::optional<Time::Point> look = nextLookAt(*road);
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

void Output::tend(Lock& lock, Road& road) {
    if (end_ && timeNow() >= *end_) {
        road.waiting.clear();
        road.bytesWaiting = 0;
    }
    advance(lock, road);
    look(road);
    if (isToBeClosed(road)) {
        close(lock, road);
    }
}

bool Output::isToBeClosed(const Road& road) const {
    if (road.state != Road::State::Open) {
        return false;
    }
    if (end_) {
        return road.waiting.empty();
    }
    if (road.isToBeSeenReadingAgain()) {
        const std::optional<FillLevel> level = road.room->level();
        return !level || level->room > road.roomWhenCut || !road.sender->isConnected();
    }
    return road.isCut() || (road.account.isSettled() && timeNow() - road.lastUsed >= idleTime);
}

std::optional<Time::Point> Output::nextLookAt(const Road& road) const {
    if (!road.waiting.empty() || (end_ && road.state != Road::State::Closed)) {
        return timeNow() + tryInterval;
    }
    if (end_) {
        return std::nullopt;  // also if it is not settled: there is nobody left to tell
    }
    if (road.isToBeSeenReadingAgain() && road.state == Road::State::Open) {
        return timeNow() + readingInterval;
    }
    if (!road.account.isSettled()) {
        return timeNow() + lookInterval;
    }
    return road.state == Road::State::Open ? std::optional(road.lastUsed + idleTime) : std::nullopt;
}

void Output::close(Lock& lock, Road& road) {
    road.state = Road::State::Closing;
    std::unique_ptr<Sender> sender = std::move(road.sender);
    road.room.reset();
    const auto left =
        std::chrono::duration_cast<milliseconds>(end_.value_or(Time::Point()) - timeNow());
    const milliseconds patience = road.isCut() ? milliseconds::zero()
                                  : end_       ? left
                                               : milliseconds(longestFarewell);
    lock.unlock();
    sender->unsubscribe(patience);
    lock.lock();
    road.state = Road::State::Closed;
    if (road.isCut()) {
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
    for (auto road = roads_.begin(); road != roads_.end();) {
        const bool isOver = road->second->hasGone && !road->second->isAskedFor &&
                            road->second->state == Road::State::Closed;
        road = isOver ? roads_.erase(road) : std::next(road);
    }
}

void Output::end() {
    Lock lock(mutex_);
    if (!end_) {
        end_ = timeNow() + longestFarewell;
    }
    changed_.notify_all();
    if (!worker_.joinable()) {
        return;
    }
    lock.unlock();
    worker_.join();
}

}  // namespace platform::alsa
