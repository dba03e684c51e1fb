#pragma once

#include <cstddef>

namespace platform::alsa {

/// How much fits in before the kernel drops something.
struct FillLevel {
    std::size_t free = 0;
    std::size_t capacity = 0;  ///< what is free when it is empty

    bool operator==(const FillLevel&) const = default;
};

}  // namespace platform::alsa
