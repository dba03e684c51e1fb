#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace simulator {

using Bytes = std::vector<std::uint8_t>;

/// A well-formed configuration message, filled so that no two blocks are alike.
inline Bytes configurationMessage(int block) {
    Bytes message(254);
    for (std::size_t i = 7; i < 253; ++i) {
        message[i] = static_cast<std::uint8_t>((i + 31 * static_cast<std::size_t>(block)) % 128);
    }
    const Bytes header = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, static_cast<std::uint8_t>(block)};
    std::copy(header.begin(), header.end(), message.begin());
    message[253] = 0xF7;
    return message;
}

/// A SysEx of that many bytes in all, F0 and F7 included, with the header of a configuration.
inline Bytes sysExOf(std::size_t size) {
    Bytes message(size, 0x01);
    const Bytes header = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E};
    std::copy_n(header.begin(), std::min(size, header.size()), message.begin());
    message.back() = 0xF7;
    return message;
}

inline Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}  // namespace simulator
