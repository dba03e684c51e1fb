#pragma once

// The configuration on the wire: four System Exclusive messages, each a layer's block as it stands
// in the image. When and through which output they go is decided elsewhere.

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "config/layout.h"

namespace config {

/// The message that carries a layer (0 to 3), sent unchanged.
[[nodiscard]] inline std::span<const std::uint8_t, blockSize> layerBlock(const Image& sysData,
                                                                         int layer) {
    return std::span<const std::uint8_t, blockSize>(sysData.data() + at(layer, 0), blockSize);
}

/// What a message turned out to be.
struct MessageReading {
    std::optional<int> layer;  ///< 0 to 3: the bytes are this layer's block
    std::string objection;     ///< otherwise why they are none, in words
};

/// Judges one whole message, F0 and F7 included: any bytes may be handed over. Objections are made
/// in this order: it begins as another device's does, it has another length, a byte inside is above
/// 7F or the end mark is missing, there is no such block.
[[nodiscard]] MessageReading readMessage(std::span<const std::uint8_t> message);

/// Whether a layer's block is what a controller takes as that layer's message. Nothing makes sure
/// of it: a preset may hold any bytes.
[[nodiscard]] inline bool isOneMessage(const Image& sysData, int layer) {
    return readMessage(layerBlock(sysData, layer)).layer == layer;
}

/// The first bytes of a message, as many as tell whose it is; without its end mark.
[[nodiscard]] std::span<const std::uint8_t> headerOf(std::span<const std::uint8_t> message);

/// A second form of message that no command sends; kept with exactly these bytes.
inline constexpr std::array<std::uint8_t, 15> secondMessageForm = {
    0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67, 0x67, 0x67, 0x67, 0x00, 0x67, 0xF7};

}  // namespace config
