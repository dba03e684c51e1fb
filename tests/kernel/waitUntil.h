#pragma once

#include <chrono>
#include <thread>

namespace kernel {

/// Waits until the condition holds, looking every 5 ms. False when it still does not after the
/// limit. The kernel works on its own time: plugging, enumeration and transfers all take a while.
template <typename Condition>
[[nodiscard]] bool waitUntil(Condition condition, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace kernel
