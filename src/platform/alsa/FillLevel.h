#pragma once

#include <cstddef>

namespace platform::alsa {

/// How much fits in before the kernel drops something.
struct FillLevel {
    std::size_t room = 0;
    std::size_t whole = 0;  ///< the room when it is empty

    bool operator==(const FillLevel&) const = default;
};

}  // namespace platform::alsa
