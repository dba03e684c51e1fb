#pragma once

#include <chrono>
#include <functional>
#include <utility>

#include "qt/desktop/InputShield.h"
#include "sending/ExactSleeper.h"

namespace qt::desktop {

/// Exact sleeps of the main thread. A job that consists of many of them keeps the window painting
/// and answering the window manager; it takes no input meanwhile, and is told nothing of devices
/// that come and go. What a person types, clicks or asks to be closed during a job that is longer
/// than a tenth of a second is thrown away.
class Sleeper {
public:
    void sleep(std::chrono::duration<double> seconds);

    /// Runs before and after every wait that a sleep is made of, the longest of which is a tenth of
    /// a second.
    void onSleep(std::function<void()> lookUp) { lookUp_ = std::move(lookUp); }

    /// The job is done, and the person is about to be asked something: input that came up to now is
    /// thrown away too. After a job too short to have painted, or none, it does nothing.
    void endJob();

private:
    using Clock = sending::ExactSleeper::Clock;

    void lookUp() const;
    void letPaint(Clock::time_point now);

    std::function<void()> lookUp_;
    Clock::time_point lastSleepEnd_{};
    Clock::time_point lastPainting_{};
    bool hasPainted_ = false;  // in the job that is going on
    sending::ExactSleeper exactly_;
    InputShield shield_;
};

}  // namespace qt::desktop
