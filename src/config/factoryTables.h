#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "config/layout.h"

namespace config {

/// One byte for each control of each layer: the entry for control i of layer b is at 80*b + i.
using FactoryTable = std::array<std::uint8_t, std::size_t{layerCount} * controlCount>;

extern const FactoryTable key_chan;   ///< channels
extern const FactoryTable preset;     ///< note, controller and program numbers
extern const FactoryTable key_mod;    ///< mode bytes without the toggle bit
extern const FactoryTable toggl_flg;  ///< the toggle bit: 0x40 or 0

/// F0 1D 03 00 69 4E 01, then zeros. Its first six bytes head every block.
extern const std::array<std::uint8_t, 32> SysBuf_init;
inline constexpr std::size_t headerSize = 6;

/// Grid position of a pad (0 to 8, button tag - 65) to its control index.
extern const std::array<std::int32_t, padCount> aPadMap;
/// Control index of a pad - 65 to its button tag; the inverse of `aPadMap`.
extern const std::array<std::int32_t, padCount> aMapPad;

}  // namespace config
