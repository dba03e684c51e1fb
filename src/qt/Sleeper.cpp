#include "qt/Sleeper.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <algorithm>

namespace qt {

namespace {

using namespace std::chrono_literals;

/// How often a window under a long job is let paint itself and answer the window manager. Often
/// enough that nobody takes it for hung; seldom, because the time it takes may make a pause longer.
constexpr auto betweenBreaths = 100ms;

}  // namespace

void Sleeper::sleep(std::chrono::duration<double> seconds) {
    const Clock::time_point start = Clock::now();
    const Clock::time_point end = sending::ExactSleeper::endOf(start, seconds);
    if (start - lastSleepEnd_ > betweenBreaths) {
        lastBreath_ =
            start;  // a new job: the event loop ran until now, so nothing waits to be painted
        breathed_ = false;
    }
    lookUp();
    for (Clock::time_point now = Clock::now(); now < end; now = Clock::now()) {
        breathe(now);
        exactly_.sleepUntil(std::min(end, lastBreath_ + betweenBreaths));
        lookUp();
    }
    lastSleepEnd_ = Clock::now();
}

void Sleeper::endJob() {
    if (!breathed_) {
        return;
    }
    breathed_ = false;
    const InputShield::Up up(shield_);
    // Input that the display still holds would otherwise arrive later, and answer the question.
    QGuiApplication::sync();
    QCoreApplication::processEvents();
}

void Sleeper::lookUp() const {
    if (lookUp_) {
        lookUp_();
    }
}

void Sleeper::breathe(Clock::time_point now) {
    if (now - lastBreath_ < betweenBreaths) {
        return;
    }
    const InputShield::Up up(shield_);
    // Without sockets, which would let a device that comes or goes change the lists during the job.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    lastBreath_ = Clock::now();
    breathed_ = true;
}

}  // namespace qt
