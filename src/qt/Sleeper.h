#pragma once

#include <chrono>

namespace qt {

/// Sleeps that are never shorter than asked, and hardly longer. A job on the main thread that
/// consists of many of them keeps the window painting and answering the window manager; it takes no
/// input meanwhile, and hears nothing of devices that come and go.
class Sleeper {
public:
    void sleep(std::chrono::duration<double> seconds);

private:
    using Clock = std::chrono::steady_clock;

    void breathe(Clock::time_point now);

    Clock::time_point lastSleepEnd_{};
    Clock::time_point lastBreath_{};
};

}  // namespace qt
