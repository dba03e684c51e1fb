#pragma once

// Frames of a firmware upload, put together from plain numbers.

#include "simulator/messages.h"

namespace simulator {

inline const Bytes updateModeMessage = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x55, 0x7F, 0xF7};

inline Bytes withChecksum(Bytes bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum += byte;
    }
    bytes.push_back(static_cast<std::uint8_t>(sum % 256));
    return bytes;
}

inline Bytes head(std::uint8_t first, std::uint8_t second) {
    return Bytes(10, 0x55) + Bytes{0x1D, 0x03, 0x00, 0x49, first, second};
}

inline Bytes commandFrame(std::uint8_t first, std::uint8_t second) {
    return withChecksum(head(first, second));
}
inline Bytes connectFrame() {
    return commandFrame(0x7F, 0x00);
}
inline Bytes eraseFrame() {
    return commandFrame(0x00, 0x70);
}
inline Bytes resetFrame() {
    return commandFrame(0x02, 0x00);
}

/// 512 bytes that tell which block they belong to.
inline Bytes contentOf(std::size_t block) {
    Bytes content(512);
    for (std::size_t i = 0; i < content.size(); ++i) {
        content[i] = static_cast<std::uint8_t>(i + 7 * block);
    }
    return content;
}

inline Bytes blockFrame(std::size_t block) {
    return withChecksum(head(0x01, static_cast<std::uint8_t>(block)) + Bytes{0x00} +
                        contentOf(block));
}

/// Each byte as its own message of two halves.
inline Bytes asMessages(const Bytes& bytes) {
    Bytes messages;
    for (const std::uint8_t byte : bytes) {
        messages.push_back(0x9F);
        messages.push_back(static_cast<std::uint8_t>(byte / 16));
        messages.push_back(static_cast<std::uint8_t>(byte % 16));
    }
    return messages;
}

}  // namespace simulator
