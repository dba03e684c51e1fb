#include "qt/Sleeper.h"

#include <sys/prctl.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QGuiApplication>
#include <algorithm>
#include <ctime>

namespace qt {

namespace {

using namespace std::chrono_literals;

/// A person takes a window for hung much later, a window manager later still.
constexpr auto betweenBreaths = 100ms;

/// What the kernel's lateness is followed by: up three times as fast as down.
constexpr auto stepUp = 3us;
constexpr auto stepDown = 1us;
constexpr auto mostLateness = 80us;  // the processor waits so long at most

/// Lets this thread's sleeps end as exactly as the kernel can, not together with others' to save
/// power: the 50 us it adds by default make short pauses longer by some per cent.
class ExactTimers {
public:
    ExactTimers() : before_(::prctl(PR_GET_TIMERSLACK)) { ::prctl(PR_SET_TIMERSLACK, 1UL); }
    ExactTimers(const ExactTimers&) = delete;
    ExactTimers& operator=(const ExactTimers&) = delete;
    ~ExactTimers() {
        if (before_ > 0) {
            ::prctl(PR_SET_TIMERSLACK, static_cast<unsigned long>(before_));
        }
    }

private:
    int before_;
};

/// Returns at that time or a little later; earlier only where a signal arrives.
void sleepUntil(std::chrono::steady_clock::time_point time) {
    const auto sinceEpoch = time.time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
    std::timespec until{};
    until.tv_sec = static_cast<std::time_t>(seconds.count());
    until.tv_nsec = static_cast<long>(std::chrono::nanoseconds(sinceEpoch - seconds).count());
    ::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
}

}  // namespace

void Sleeper::sleep(std::chrono::duration<double> seconds) {
    const Clock::time_point start = Clock::now();
    const Clock::time_point end =
        start + std::chrono::ceil<Clock::duration>(std::max(seconds, decltype(seconds)::zero()));
    if (start - lastSleepEnd_ > betweenBreaths) {
        lastBreath_ = start;  // a new job; the event loop ran until now
        breathed_ = false;
    }
    const ExactTimers exactTimers;
    lookUp();
    for (Clock::time_point now = Clock::now(); now < end; now = Clock::now()) {
        breathe(now);
        waitUntil(std::min(end, lastBreath_ + betweenBreaths));
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
    QGuiApplication::sync();  // fetches what the display still holds, and processes it
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
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    lastBreath_ = Clock::now();
    breathed_ = true;
}

void Sleeper::waitUntil(Clock::time_point end) {
    const Clock::time_point early = end - lateness_;
    Clock::time_point now = Clock::now();
    if (now < early) {
        sleepUntil(early);
        now = Clock::now();
        const bool later = now - early > lateness_;
        lateness_ = std::clamp<Clock::duration>(lateness_ + (later ? stepUp : -stepDown),
                                                Clock::duration::zero(), mostLateness);
    }
    while (now < end) {
        now = Clock::now();
    }
}

}  // namespace qt
