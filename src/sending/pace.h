#pragma once

// How long everything takes. Nothing is read back from the controller, so pauses are all there is
// to keep an upload in step with it.

#include <chrono>
#include <cstdint>
#include <string>

namespace sending {

using Seconds = std::chrono::duration<double>;

inline constexpr Seconds afterUpdateMessage{1.75};
// After each byte of a frame or block.
inline constexpr Seconds connectPause{0.002};
inline constexpr Seconds erasePause{0.001};
inline constexpr Seconds writePause{0.002};
inline constexpr Seconds noPause{0};
// After the whole of it.
inline constexpr Seconds afterFrame{0.1};
inline constexpr Seconds afterBlock{0.1};
inline constexpr Seconds afterReset{0.1};  ///< on top of the one after every frame

/// Blocks that an image of so many bytes takes.
[[nodiscard]] std::uint64_t blocksFor(std::uint64_t bytes);

/// From the first byte of that many blocks, or of a whole upload of them, to the end of the last
/// pause, to a controller that stays online.
[[nodiscard]] Seconds timeOfBlocks(std::uint64_t blocks);
[[nodiscard]] Seconds timeOfUpload(std::uint64_t blocks);

/// A time for a person to read, rounded up: "45 s", "1 min 33 s", "2 h 5 min".
[[nodiscard]] std::string inWords(Seconds time);

/// A number with a comma between each three digits: "40,000".
[[nodiscard]] std::string inWords(std::uint64_t number);

}  // namespace sending
