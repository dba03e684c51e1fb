#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace app {

/// Ends the process with status 3, and says so, unless it is called off in time. It has a thread of
/// its own, so that it ends a run whose main thread is blocked, too.
class Watchdog {
public:
    explicit Watchdog(std::chrono::seconds limit);
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog();

private:
    void watch(std::chrono::seconds limit);

    std::mutex mutex_;
    std::condition_variable calledOff_;
    bool done_ = false;
    std::thread thread_;
};

}  // namespace app
