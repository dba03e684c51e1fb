#include "platform/alsa/SpaceGauge.h"

#include <algorithm>
#include <utility>

namespace platform::alsa {
namespace {

/// How long a wire needs for so many bytes.
Time::Duration onTheWire(std::size_t bytes) {
    return std::chrono::duration_cast<Time::Duration>(std::chrono::duration<double>(
        static_cast<double>(bytes) / static_cast<double>(SpaceGauge::wireRate)));
}

}  // namespace

SpaceGauge::SpaceGauge(Level level, Time time) : level_(std::move(level)), time_(std::move(time)) {}

bool SpaceGauge::take(std::size_t cost) {
    if (credit_ >= cost) {
        credit_ -= cost;
        return true;
    }
    credit_ = 0;
    const std::optional<FillLevel> level = level_();
    if (!level) {
        return takeFromWire(cost);
    }
    // What is larger than all the space goes out once that is empty.
    const bool fits = level->free >= cost || level->free >= level->capacity;
    if (fits) {
        credit_ = level->free - std::min(cost, level->free);
    }
    return fits;
}

bool SpaceGauge::takeFromWire(std::size_t cost) {
    const Time::Point now = time_.now();
    const Time::Point free = std::max(wireIsFree_, now) + onTheWire(cost);
    if (free - onTheWire(std::max(unseenBacklog, cost)) > now) {
        return false;
    }
    wireIsFree_ = free;
    return true;
}

}  // namespace platform::alsa
