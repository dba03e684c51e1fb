#pragma once

// What a Send puts on the wire: these blocks, with these pauses. Who sends them, and through which
// output, is decided elsewhere.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <span>

#include "config/layout.h"

namespace config {

/// The pause after every block, the last one included: the only pacing between the messages.
inline constexpr std::chrono::duration<double> pauseAfterBlock{0.002};

/// Layer `layer`'s block: one complete SysEx message, sent unchanged.
[[nodiscard]] inline std::span<const std::uint8_t, blockSize> layerBlock(const Image& sysData,
                                                                         int layer) {
    return std::span<const std::uint8_t, blockSize>(sysData.data() + at(layer, 0), blockSize);
}

/// What every layer's message begins with; the layer's number, from 1 on, comes next.
inline constexpr std::array<std::uint8_t, 6> messageHeader = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E};

/// Whether a layer's block is what a controller takes as that layer's message: it begins and ends
/// as it should, and between F0 and F7 no byte is 0x80 or more. Nothing makes sure of it.
[[nodiscard]] inline bool isOneMessage(const Image& sysData, int layer) {
    const auto block = layerBlock(sysData, layer);
    const auto data = block.subspan(1, endOffset - 1);
    return std::equal(messageHeader.begin(), messageHeader.end(), block.begin()) &&
           block[blockNumberOffset] == layer + 1 && block[endOffset] == 0xF7 &&
           std::none_of(data.begin(), data.end(), [](std::uint8_t byte) { return byte >= 0x80; });
}

/// A second form of message that no command sends; kept with exactly these bytes.
inline constexpr std::array<std::uint8_t, 15> secondMessageForm = {
    0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67, 0x67, 0x67, 0x67, 0x00, 0x67, 0xF7};

}  // namespace config
