#pragma once

#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// What a caller of the service did wrong, in words, in order. It may be kept beyond the service's
/// life, to see what was left open at the end.
class Misuses {
public:
    void report(std::string what) {
        const std::lock_guard lock(mutex_);
        reports_.push_back(std::move(what));
    }
    [[nodiscard]] std::vector<std::string> reports() const {
        const std::lock_guard lock(mutex_);
        return reports_;
    }
    void clear() {
        const std::lock_guard lock(mutex_);
        reports_.clear();
    }

private:
    mutable std::mutex mutex_;
    std::vector<std::string> reports_;
};

}  // namespace support
