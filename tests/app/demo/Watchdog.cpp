#include "app/demo/Watchdog.h"

#include <cstdio>
#include <cstdlib>

namespace app {

Watchdog::Watchdog(std::chrono::seconds limit) : thread_([this, limit] { watch(limit); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(mutex_);
        done_ = true;
    }
    calledOff_.notify_one();
    thread_.join();
}

void Watchdog::watch(std::chrono::seconds limit) {
    std::unique_lock lock(mutex_);
    if (calledOff_.wait_for(lock, limit, [this] { return done_; })) {
        return;
    }
    constexpr int timeIsUp = 3;
    std::printf("WRONG: not done within %lld s; giving up.\n",
                static_cast<long long>(limit.count()));
    std::fflush(stdout);
    std::_Exit(timeIsUp);
}

}  // namespace app
