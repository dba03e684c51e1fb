#include "platform/alsa/Interruption.h"

#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>

namespace platform::alsa {
namespace {

using std::chrono::milliseconds;

const int breakSignal = SIGRTMAX - 3;
/// The first one may come before the kernel waits.
constexpr milliseconds again{5};

void ignoreSignal(int) {}

timespec timeOf(milliseconds duration) {
    constexpr long nanosecondsInAMillisecond = 1'000'000;
    return {static_cast<std::time_t>(duration.count() / 1000),
            static_cast<long>(duration.count() % 1000) * nanosecondsInAMillisecond};
}

/// Sees to it that the signal breaks in without ending the program.
void makeSignalHarmless() {
    struct sigaction action {};
    action.sa_handler = ignoreSignal;
    sigemptyset(&action.sa_mask);
    sigaction(breakSignal, &action, nullptr);
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, breakSignal);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace

Interruption::Interruption(milliseconds after) {
    makeSignalHarmless();
    sigevent event{};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = breakSignal;
    event._sigev_un._tid = gettid();
    isSet_ = timer_create(CLOCK_MONOTONIC, &event, &timer_) == 0;
    if (isSet_) {
        // Zero would stop it.
        const itimerspec when{timeOf(again), timeOf(std::max(after, milliseconds(1)))};
        timer_settime(timer_, 0, &when, nullptr);
    }
}

Interruption::~Interruption() {
    if (isSet_) {
        timer_delete(timer_);
    }
}

}  // namespace platform::alsa
