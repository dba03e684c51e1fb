#pragma once

#include <algorithm>
#include <cstddef>
#include <random>

#include "kernel/Bytes.h"

// A firmware file, and what a controller gets when it is uploaded.

namespace kernel {

inline constexpr std::size_t bytesInABlock = 512;
inline constexpr std::size_t bytesInAMessage = 3;
inline constexpr std::size_t bytesInAFrame = 17;
inline constexpr std::size_t bytesOnTheWireInABlock =
    (bytesInAFrame + bytesInABlock + 1) * bytesInAMessage;

inline Bytes randomImage(std::size_t size) {
    std::mt19937 random(40000);
    Bytes image(size);
    std::generate(image.begin(), image.end(),
                  [&] { return static_cast<std::uint8_t>(random() & 0xFFU); });
    return image;
}

/// What a controller gets, worked out by hand: each byte as a note of its high half with a velocity
/// of its low half, on the last channel.
class Wire {
public:
    /// Ten times 55, the address, a command, and the sum of it all.
    void frame(std::uint8_t command, std::uint8_t argument) {
        sum_ = 0;
        header(command, argument);
        asNote(sum_);
    }
    void block(std::uint8_t counter, const Bytes& image, std::size_t begin) {
        sum_ = 0;
        header(1, counter);
        asNote(0);
        for (std::size_t i = begin; i < begin + bytesInABlock; ++i) {
            asNote(i < image.size() ? image[i] : 0);
        }
        asNote(sum_);
    }
    [[nodiscard]] const Bytes& bytes() const { return bytes_; }

private:
    void header(std::uint8_t command, std::uint8_t argument) {
        for (int i = 0; i < 10; ++i) {
            asNote(0x55);
        }
        for (const std::uint8_t byte : Bytes{0x1D, 0x03, 0x00, 0x49}) {
            asNote(byte);
        }
        asNote(command);
        asNote(argument);
    }
    void asNote(std::uint8_t byte) {
        bytes_.push_back(0x9F);
        bytes_.push_back(static_cast<std::uint8_t>(byte / 16));
        bytes_.push_back(static_cast<std::uint8_t>(byte % 16));
        sum_ = static_cast<std::uint8_t>((sum_ + byte) % 256);
    }

    Bytes bytes_;
    std::uint8_t sum_ = 0;
};

/// What step 5 sends.
inline Bytes uploadOf(const Bytes& image) {
    Wire wire;
    wire.frame(0x7F, 0x00);
    wire.frame(0x00, 0x70);
    std::uint8_t counter = 0;
    for (std::size_t begin = 0; begin < image.size(); begin += bytesInABlock) {
        wire.block(counter++, image, begin);
    }
    wire.frame(0x02, 0x00);
    return wire.bytes();
}

/// What steps 1 to 5 send.
inline Bytes allStepsOf(const Bytes& image) {
    Bytes bytes{0xF0, 0x1D, 0x03, 0x00, 0x69, 0x55, 0x7F, 0xF7};
    const Bytes upload = uploadOf(image);
    bytes.insert(bytes.end(), upload.begin(), upload.end());
    return bytes;
}

}  // namespace kernel
