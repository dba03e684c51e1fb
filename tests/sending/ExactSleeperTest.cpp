#include "sending/ExactSleeper.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>

#include <atomic>
#include <csignal>
#include <thread>

namespace sending {
namespace {

using namespace std::chrono_literals;
using Clock = ExactSleeper::Clock;

std::chrono::duration<double> timeOf(ExactSleeper& sleeper, std::chrono::duration<double> asked) {
    const Clock::time_point start = Clock::now();
    sleeper.sleep(asked);
    return Clock::now() - start;
}

TEST(ExactSleeper, SleepsNeverShorterThanAsked) {
    ExactSleeper sleeper;
    for (int i = 0; i < 40; ++i) {
        EXPECT_GE(timeOf(sleeper, 2ms).count(), 0.002);
    }
}

TEST(ExactSleeper, DoesNotSleepForNoTimeOrLess) {
    const Clock::time_point now = Clock::now();
    EXPECT_EQ(ExactSleeper::endOf(now, 0s), now);
    EXPECT_EQ(ExactSleeper::endOf(now, -1s), now);
    ExactSleeper sleeper;
    sleeper.sleepUntil(now - 1s);
    EXPECT_LT(timeOf(sleeper, -1s).count(), 1);
}

std::atomic<int> slack{0};  // a signal handler has nowhere else to put it

TEST(ExactSleeper, AsksTheKernelForExactTimersAndSleepsOnAfterASignal) {
    struct sigaction before {};
    struct sigaction look {};
    look.sa_handler = [](int) { slack = ::prctl(PR_GET_TIMERSLACK); };
    ::sigaction(SIGUSR1, &look, &before);
    const pthread_t sleeping = ::pthread_self();
    std::thread other([sleeping] {
        std::this_thread::sleep_for(20ms);
        ::pthread_kill(sleeping, SIGUSR1);
    });
    ExactSleeper sleeper;
    EXPECT_GE(timeOf(sleeper, 200ms).count(), 0.2);
    other.join();
    ::sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(slack, 1) << "nanosecond; the usual slack would make short pauses longer";
}

TEST(ExactSleeper, LeavesTheThreadsTimersAsTheyWere) {
    const int before = ::prctl(PR_GET_TIMERSLACK);
    ExactSleeper sleeper;
    sleeper.sleep(3ms);
    EXPECT_EQ(::prctl(PR_GET_TIMERSLACK), before);
}

}  // namespace
}  // namespace sending
