#pragma once

#include <chrono>
#include <ctime>

namespace platform::alsa {

/// Breaks into what the kernel lets the calling thread wait for, after some time and again and
/// again until it is destroyed. By a signal that nothing else uses.
class Interruption {
public:
    explicit Interruption(std::chrono::milliseconds after);
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

private:
    timer_t timer_{};
    bool isSet_ = false;
};

}  // namespace platform::alsa
