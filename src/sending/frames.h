#pragma once

// What an upload says to a controller that waits in its update mode. Pure functions: they know
// neither a device nor a clock.
//
//   command frame:  55 x 10 | 1D 03 00 49 | command (2) | checksum                   17 bytes
//   write block:    55 x 10 | 1D 03 00 49 | 01 counter | 00 | image (512) | checksum  530 bytes
//
// A checksum is the sum of all bytes before it, modulo 256. A write block has one at its end, none
// where a command frame has it. Every byte of a frame or block travels in a message of its own,
// half a byte in each of the message's two data bytes.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace sending {

inline constexpr std::size_t frameSize = 17;
inline constexpr std::size_t commandOffset = 14;
inline constexpr std::size_t blockCounterOffset = 15;
inline constexpr std::size_t frameChecksumOffset = 16;
using Frame = std::array<std::uint8_t, frameSize>;

inline constexpr std::size_t imageBytesInABlock = 512;
inline constexpr std::size_t blockChecksumOffset = frameSize + imageBytesInABlock;
inline constexpr std::size_t writeBlockSize = blockChecksumOffset + 1;
using WriteBlock = std::array<std::uint8_t, writeBlockSize>;

/// Space for an image; longer than any file that is accepted.
inline constexpr std::size_t imageBufferSize = 65536;
using ImageBuffer = std::array<std::uint8_t, imageBufferSize>;

/// Note on, channel 16: the status of a message that carries one byte.
inline constexpr std::uint8_t nibbleStatus = 0x9F;
using NibbleMessage = std::array<std::uint8_t, 3>;

/// Sends a controller into its update mode: one SysEx message.
inline constexpr std::array<std::uint8_t, 8> update = {0xF0, 0x1D, 0x03, 0x00,
                                                       0x69, 0x55, 0x7F, 0xF7};

/// A frame with its command code; the checksum is 0 until it is sent.
[[nodiscard]] constexpr Frame commandFrame(std::uint8_t first, std::uint8_t second) {
    return {0x55, 0x55, 0x55, 0x55, 0x55, 0x55,  0x55,   0x55, 0x55,
            0x55, 0x1D, 0x03, 0x00, 0x49, first, second, 0x00};
}

inline constexpr Frame connectFrame = commandFrame(0x7F, 0x00);
inline constexpr Frame eraseFrame = commandFrame(0x00, 0x70);
inline constexpr Frame writeFrame = commandFrame(0x01, 0x00);  ///< with block counter 0
inline constexpr Frame resetFrame = commandFrame(0x02, 0x00);

/// The sum of the bytes, modulo 256.
[[nodiscard]] std::uint8_t checksum(std::span<const std::uint8_t> bytes);

/// A byte on its way: the status, its upper half, its lower half.
[[nodiscard]] constexpr NibbleMessage nibbleMessage(std::uint8_t byte) {
    return {nibbleStatus, static_cast<std::uint8_t>(byte >> 4),
            static_cast<std::uint8_t>(byte & 0x0F)};
}

/// The image's byte at `index`; 0 beyond the buffer.
[[nodiscard]] std::uint8_t imageByte(const ImageBuffer& image, std::uint64_t index);

/// The block that writes the 512 bytes of the image from `first` on. `write` is the frame it begins
/// with.
[[nodiscard]] WriteBlock writeBlock(const Frame& write, const ImageBuffer& image,
                                    std::uint64_t first);

}  // namespace sending
