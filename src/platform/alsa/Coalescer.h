#pragma once

#include <algorithm>
#include <chrono>
#include <optional>

namespace platform::alsa {

/// Makes one of many changes that come in a row: it waits until there have been none for a moment,
/// but not for ever.
class Coalescer {
public:
    using Point = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    static constexpr std::chrono::milliseconds quiet{20};
    static constexpr std::chrono::milliseconds longestDelay{250};

    void note(Point now) {
        first_ = first_.value_or(now);
        last_ = now;
    }

    /// How long until the changes are due, 0 if they are; nothing if there are none.
    [[nodiscard]] std::optional<Duration> dueIn(Point now) const {
        if (!first_) {
            return std::nullopt;
        }
        return std::max(Duration::zero(), std::min(last_ + quiet, *first_ + longestDelay) - now);
    }

    void clear() { first_.reset(); }

private:
    std::optional<Point> first_;
    Point last_;
};

}  // namespace platform::alsa
