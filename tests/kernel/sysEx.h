#pragma once

#include "kernel/Bytes.h"

namespace kernel {

/// A System Exclusive message of so many bytes in all, at least three. Its content counts up, so
/// that a piece that is missing, or stands elsewhere, shows.
[[nodiscard]] inline Bytes sysEx(std::size_t size) {
    Bytes bytes{0xF0, 0x7D};
    for (std::size_t index = 2; index + 1 < size; ++index) {
        bytes.push_back(static_cast<std::uint8_t>((index + index / 128) % 128));
    }
    bytes.push_back(0xF7);
    return bytes;
}

}  // namespace kernel
