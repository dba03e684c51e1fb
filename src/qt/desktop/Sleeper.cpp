#include "qt/desktop/Sleeper.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <algorithm>

namespace qt::desktop {

namespace {

using namespace std::chrono_literals;

/// How often a window under a long job is let paint itself and answer the window manager. Often
/// enough that nobody takes it for hung; seldom, because the time it takes may make a pause longer.
constexpr auto betweenPaintings = 100ms;

}  // namespace

void Sleeper::sleep(std::chrono::duration<double> seconds) {
    const Clock::time_point start = Clock::now();
    const Clock::time_point end = sending::ExactSleeper::endOf(start, seconds);
    if (start - lastSleepEnd_ > betweenPaintings) {
        // A new job: the event loop ran until now, so nothing waits to be painted.
        lastPainting_ = start;
        hasPainted_ = false;
    }
    lookUp();
    for (Clock::time_point now = Clock::now(); now < end; now = Clock::now()) {
        letPaint(now);
        exactly_.sleepUntil(std::min(end, lastPainting_ + betweenPaintings));
        lookUp();
    }
    lastSleepEnd_ = Clock::now();
}

void Sleeper::endJob() {
    if (!hasPainted_) {
        return;
    }
    hasPainted_ = false;
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

void Sleeper::letPaint(Clock::time_point now) {
    if (now - lastPainting_ < betweenPaintings) {
        return;
    }
    const InputShield::Up up(shield_);
    // Without sockets, which would let a device that comes or goes change the lists during the job.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    lastPainting_ = Clock::now();
    hasPainted_ = true;
}

}  // namespace qt::desktop
