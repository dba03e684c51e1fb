#pragma once

#include <xcb/xcb.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

namespace live {

/// Asks a window again and again whether it is alive, as a window manager does, on a connection and
/// a thread of its own.
class Pings {
public:
    using Milliseconds = std::chrono::milliseconds;

    /// `window` is the window's number on the display.
    explicit Pings(xcb_window_t window);
    Pings(const Pings&) = delete;
    Pings& operator=(const Pings&) = delete;
    ~Pings();

    /// The longest the window took for an answer so far, one that is still due included.
    [[nodiscard]] Milliseconds longestWait() const;
    [[nodiscard]] int answers() const { return answers_; }

private:
    using Clock = std::chrono::steady_clock;

    void run();
    void ping();
    void takeAnswers();
    [[nodiscard]] xcb_atom_t atom(const char* name) const;

    xcb_connection_t* const connection_;
    const xcb_window_t window_;
    xcb_window_t root_ = 0;
    xcb_atom_t protocols_ = 0;
    xcb_atom_t pingProtocol_ = 0;

    mutable std::mutex mutex_;
    bool due_ = false;
    Clock::time_point asked_;
    Clock::duration longest_{};
    std::atomic<int> answers_ = 0;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

}  // namespace live
