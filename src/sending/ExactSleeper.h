#pragma once

#include <chrono>

namespace sending {

/// Sleeps that are never shorter than asked, and hardly longer: the last moments are waited through
/// with open eyes, as many as the kernel has been late by. For one thread.
class ExactSleeper {
public:
    using Clock = std::chrono::steady_clock;

    void sleep(std::chrono::duration<double> seconds) { sleepUntil(endOf(Clock::now(), seconds)); }
    void sleepUntil(Clock::time_point end);

    /// When a sleep ends that begins at `start`; at once where it is of no time or less.
    [[nodiscard]] static Clock::time_point endOf(Clock::time_point start,
                                                 std::chrono::duration<double> seconds);

private:
    /// How late the kernel wakes this thread, three times out of four; it is told to do so earlier.
    Clock::duration lateness_{};
};

}  // namespace sending
