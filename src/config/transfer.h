#pragma once

// What a Send puts on the wire: these blocks, with these pauses. Who sends them, and through which
// output, is decided elsewhere.

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

/// A second form of message that no command sends; kept with exactly these bytes.
inline constexpr std::array<std::uint8_t, 15> secondMessageForm = {
    0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67, 0x67, 0x67, 0x67, 0x00, 0x67, 0xF7};

}  // namespace config
