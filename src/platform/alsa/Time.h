#pragma once

#include <chrono>
#include <functional>

namespace platform::alsa {

/// The clock; another one in tests.
struct Time {
    using Point = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    std::function<Point()> now = [] { return std::chrono::steady_clock::now(); };
};

/// What the clock says where it is no other.
[[nodiscard]] inline Time::Point timeNow() {
    return std::chrono::steady_clock::now();
}

}  // namespace platform::alsa
