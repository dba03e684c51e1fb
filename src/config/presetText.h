#pragma once

// The text of a preset file: one byte of the image a line, in decimal. Pure functions over bytes;
// opening, replacing and refusing files is done elsewhere.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/layout.h"

namespace config {

/// The file type of presets, and the name proposed for a new one.
inline constexpr std::string_view presetFileType = "Tormelk";

/// The most that is ever read of a preset file, in bytes. Its 1016 numbers need 5080 at most;
/// the rest is space for blanks. What comes later is not looked at.
inline constexpr std::size_t presetTextLimit = std::size_t{1} << 20;

/// The bytes of an image that are in use.
using PresetBytes = std::array<std::uint8_t, imageSize>;

[[nodiscard]] PresetBytes presetBytes(const Image& sysData);

/// 1016 lines, each a byte as an unsigned decimal number and a line feed.
[[nodiscard]] std::string presetText(const Image& sysData);

/// Reads 1016 numbers and keeps the low eight bits of each. None where the text ends or something
/// other than a number stands before the last of them; what follows it is not looked at. None, too,
/// where the last of them reaches `presetTextLimit`: it may go on behind what was read of the file.
///
/// A number is what a formatted reader (`%d`) takes: blanks and blank lines before it are passed
/// over, it may have a sign, and it ends at the first character that is no digit. Beyond 64 bits
/// it counts as the nearest 64-bit number.
[[nodiscard]] std::optional<PresetBytes> readPresetText(std::string_view text);

/// Whether a preset begins as the image does: the first five bytes are equal.
[[nodiscard]] bool hasPresetHeader(const PresetBytes& bytes, const Image& sysData);

}  // namespace config
