#pragma once

// The two stores beside the image, and the copying between them and it when the DAW mode changes.

#include <array>
#include <cstddef>
#include <cstdint>

#include "config/layout.h"

namespace config {

/// Bytes of a layer that the user-defined store keeps: its block up to the last mode byte.
inline constexpr std::size_t userBlockSize = 247;

struct Stores {
    /// What every DAW mode sends, laid out like the image. Only its channel, number and mode
    /// areas are ever read.
    std::array<std::uint8_t, 1024> SysBuf_MCP{};

    /// The user's own assignments while a DAW mode is active: four blocks of 247 bytes, byte j of
    /// layer b at 247*b + j. The bytes behind them (988 to 994) are never read; the end mark of the
    /// last block falls there at start-up.
    std::array<std::uint8_t, 995> SysBuf_usrdef{};

    /// Byte of `SysBuf_usrdef` that is not zero while the store holds data.
    static constexpr std::size_t holdsDataMark = 246;

    [[nodiscard]] bool userDefinedHoldsData() const { return SysBuf_usrdef[holdsDataMark] != 0; }

    bool operator==(const Stores&) const = default;
};

/// Start, then end (not included), of the byte ranges of a block that a mode change exchanges.
/// Row 0 is for layer 0, row 1 for layers 1 to 3. Left out on purpose, so that they stay in force
/// in every mode: channel and number of control 73 in layer 0; those of the master fader and the
/// pads in layers 1 to 3; the mode of control 79; the trailer.
extern const std::array<std::int32_t, 12> aSysDatIndx;

/// Copies the swap ranges of every layer from the image to the user-defined store.
void keepUserDefined(const Image& sysData, Stores& stores);

/// Copies all 247 bytes of every layer from the image to the user-defined store: more than a mode
/// change keeps.
void keepWholeUserDefined(const Image& sysData, Stores& stores);

/// Copies the swap ranges of every layer from the factory store into the image.
void loadFactory(Image& sysData, const Stores& stores);

/// Copies the swap ranges of every layer from the user-defined store into the image.
void restoreUserDefined(Image& sysData, const Stores& stores);

}  // namespace config
