#include "sending/ExactSleeper.h"

#include <sys/prctl.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace sending {

namespace {

using namespace std::chrono_literals;

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

/// Returns at that time or a little later.
void letKernelSleepUntil(std::chrono::steady_clock::time_point time) {
    const ExactTimers exactTimers;
    const auto sinceEpoch = time.time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
    std::timespec until{};
    until.tv_sec = static_cast<std::time_t>(seconds.count());
    until.tv_nsec = static_cast<long>(std::chrono::nanoseconds(sinceEpoch - seconds).count());
    while (::clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) {
    }
}

}  // namespace

ExactSleeper::Clock::time_point ExactSleeper::endOf(Clock::time_point start,
                                                    std::chrono::duration<double> seconds) {
    return start + std::chrono::ceil<Clock::duration>(std::max(seconds, decltype(seconds)::zero()));
}

void ExactSleeper::sleepUntil(Clock::time_point end) {
    const Clock::time_point early = end - lateness_;
    Clock::time_point now = Clock::now();
    if (now < early) {
        letKernelSleepUntil(early);
        now = Clock::now();
        const bool later = now - early > lateness_;
        lateness_ = std::clamp<Clock::duration>(lateness_ + (later ? stepUp : -stepDown),
                                                Clock::duration::zero(), mostLateness);
    }
    while (now < end) {
        now = Clock::now();
    }
}

}  // namespace sending
