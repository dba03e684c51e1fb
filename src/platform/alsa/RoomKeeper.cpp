#include "platform/alsa/RoomKeeper.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace platform::alsa {
namespace {

using std::chrono::milliseconds;

/// How long a wire needs for so many bytes.
Time::Duration onTheWire(std::size_t bytes) {
    return std::chrono::duration_cast<Time::Duration>(std::chrono::duration<double>(
        static_cast<double>(bytes) / static_cast<double>(RoomKeeper::wireRate)));
}

/// How long to wait before the level is read again: what is missing may take this long on a wire,
/// but most devices are faster.
Time::Duration pauseFor(std::size_t missing) {
    return std::clamp<Time::Duration>(onTheWire(missing) / 4, milliseconds(1), milliseconds(10));
}

}  // namespace

void Time::pass(Duration duration) const {
    if (sleep) {
        sleep(duration);
    } else {
        std::this_thread::sleep_for(duration);
    }
}

RoomKeeper::RoomKeeper(Level level, Time time) : level_(std::move(level)), time_(std::move(time)) {}

bool RoomKeeper::waitFor(std::size_t cost) {
    if (credit_ >= cost) {
        credit_ -= cost;
        return true;
    }
    credit_ = 0;
    const Time::Point began = time_.now();
    Time::Point lastTaken = began;
    std::size_t lastRoom = 0;
    for (;;) {
        const std::optional<FillLevel> level = level_();
        if (!level) {
            return waitForWire(cost, began + longestWait);
        }
        if (level->room >= cost || level->room >= level->whole) {
            credit_ = level->room - std::min(cost, level->room);
            return true;
        }
        const Time::Point now = time_.now();
        if (level->room != lastRoom) {
            lastRoom = level->room;
            lastTaken = now;
        }
        if (now - lastTaken >= longestStandstill || now - began >= longestWait) {
            return false;
        }
        time_.pass(pauseFor(cost - level->room));
    }
}

bool RoomKeeper::waitForWire(std::size_t cost, Time::Point giveUp) {
    const Time::Point now = time_.now();
    const Time::Point free = std::max(wireIsFree_, now) + onTheWire(cost);
    const Time::Point begin = free - onTheWire(std::max(unseenBacklog, cost));
    if (begin > giveUp) {
        return false;
    }
    if (begin > now) {
        time_.pass(begin - now);
    }
    wireIsFree_ = free;
    return true;
}

}  // namespace platform::alsa
