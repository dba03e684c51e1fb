#include "qt/Sleeper.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <algorithm>
#include <thread>

namespace qt {

namespace {

/// A person takes a window for hung much later, a window manager later still.
constexpr auto betweenBreaths = std::chrono::milliseconds(50);

}  // namespace

void Sleeper::sleep(std::chrono::duration<double> seconds) {
    const Clock::time_point start = Clock::now();
    const Clock::time_point end =
        start + std::chrono::ceil<Clock::duration>(std::max(seconds, decltype(seconds)::zero()));
    if (start - lastSleepEnd_ > betweenBreaths) {
        lastBreath_ = start;  // a new job; the event loop ran until now
    }
    for (Clock::time_point now = start; now < end; now = Clock::now()) {
        breathe(now);
        std::this_thread::sleep_until(std::min(end, lastBreath_ + betweenBreaths));
    }
    lastSleepEnd_ = Clock::now();
}

void Sleeper::breathe(Clock::time_point now) {
    if (now - lastBreath_ < betweenBreaths) {
        return;
    }
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                    QEventLoop::ExcludeSocketNotifiers);
    lastBreath_ = Clock::now();
}

}  // namespace qt
