#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <span>

#include "kernel/Bytes.h"

namespace kernel {

/// What has arrived somewhere so far. One thread adds to it while others read.
class ReceivedBytes {
public:
    void add(std::span<const std::uint8_t> more) {
        {
            const std::lock_guard lock(mutex_);
            bytes_.insert(bytes_.end(), more.begin(), more.end());
        }
        changed_.notify_all();
    }

    [[nodiscard]] Bytes all() const {
        const std::lock_guard lock(mutex_);
        return bytes_;
    }

    /// Waits until so many bytes are there in all, or for as long as the limit says. Returns those
    /// that are there then, be they fewer or more.
    [[nodiscard]] Bytes atLeast(std::size_t count, std::chrono::milliseconds limit) const {
        std::unique_lock lock(mutex_);
        changed_.wait_for(lock, limit, [&] { return bytes_.size() >= count; });
        return bytes_;
    }

    void forget() {
        const std::lock_guard lock(mutex_);
        bytes_.clear();
    }

private:
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    Bytes bytes_;
};

}  // namespace kernel
