#pragma once

// Where each byte of the configuration stands. The image is what the controller receives: four
// layer blocks, each one complete SysEx message.
//
//   one layer block, 254 bytes
//   +----+----------+-------+-------+-------------+------------+-----------+---------------+----+
//   | F0 | 1D 03 00 | 69 4E | block | 80 channels | 80 numbers | 80 modes  | trailer       | F7 |
//   |    |          |       | 1..4  |             |            |           |               |    |
//   +----+----------+-------+-------+-------------+------------+-----------+---------------+----+
//   0    1          4       6       7             87           167         247             253
//
//   trailer: 247 pad curve | 248 DAW mode | 249 pad interval | 250 lock | 251, 252 zero

#include <array>
#include <cstddef>
#include <cstdint>

namespace config {

inline constexpr int layerCount = 4;
inline constexpr int controlCount = 80;  ///< entries of a block; 74 to 79 have no button
inline constexpr int buttonCount = 74;   ///< controls that have a button in the main window
inline constexpr std::size_t blockSize = 254;
inline constexpr std::size_t imageSize = layerCount * blockSize;  ///< 1016 bytes in use

// Offsets inside a block.
inline constexpr std::size_t blockNumberOffset = 6;
inline constexpr std::size_t channelOffset = 7;
inline constexpr std::size_t numberOffset = 87;
inline constexpr std::size_t modeOffset = 167;
inline constexpr std::size_t curveOffset = 247;
inline constexpr std::size_t dawModeOffset = 248;
inline constexpr std::size_t intervalOffset = 249;
inline constexpr std::size_t lockOffset = 250;
inline constexpr std::size_t endOffset = 253;

// Control indexes, by group.
inline constexpr int firstLayerKey = 32;
inline constexpr int lastLayerKey = 35;
inline constexpr int firstTransportKey = 36;  ///< the pad-layer buttons carry these tags too
inline constexpr int firstEncoderPush = 40;
inline constexpr int firstEncoder = 48;
inline constexpr int firstFader = 56;
inline constexpr int lastFader = 64;
inline constexpr int firstPad = 65;
inline constexpr int lastPad = 73;
inline constexpr int padCount = 9;
inline constexpr int noControl = 127;

/// Whether there is such a layer: 0 to 3.
[[nodiscard]] constexpr bool isLayer(int layer) {
    return layer >= 0 && layer < layerCount;
}
[[nodiscard]] constexpr bool isLayerKey(int control) {
    return control >= firstLayerKey && control <= lastLayerKey;
}
[[nodiscard]] constexpr bool isPad(int control) {
    return control >= firstPad && control <= lastPad;
}

/// The image, with a few spare bytes behind the 1016 that are used.
using Image = std::array<std::uint8_t, 1024>;

/// Position of byte `offset` of a layer's block. Any offset is allowed; see `readByte`.
[[nodiscard]] constexpr std::size_t at(int layer, std::size_t offset) {
    return static_cast<std::size_t>(layer) * blockSize + offset;
}

/// A byte of the image; 0 where `position` lies behind its end.
[[nodiscard]] constexpr std::uint8_t readByte(const Image& image, std::size_t position) {
    return position < image.size() ? image[position] : std::uint8_t{0};
}

/// Writes the low eight bits of `value`; dropped where `position` lies behind the image's end.
constexpr void writeByte(Image& image, std::size_t position, int value) {
    if (position < image.size()) {
        image[position] = static_cast<std::uint8_t>(value);
    }
}

/// A byte of a block's trailer, by its offset in the block (247 to 250).
[[nodiscard]] constexpr std::uint8_t trailer(const Image& image, int layer, std::size_t offset) {
    return readByte(image, at(layer, offset));
}
constexpr void setTrailer(Image& image, int layer, std::size_t offset, int value) {
    writeByte(image, at(layer, offset), value);
}
/// Writes a trailer byte that the four blocks always share (DAW mode, lock flag).
constexpr void setTrailerOfEveryLayer(Image& image, std::size_t offset, int value) {
    for (int layer = 0; layer < layerCount; ++layer) {
        setTrailer(image, layer, offset, value);
    }
}

}  // namespace config
