#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "config/layout.h"

namespace config {

/// Differs between any two positions less than 251 apart, and is never 0.
inline std::uint8_t filling(std::size_t position) {
    return static_cast<std::uint8_t>(1 + position % 251);
}

/// The position of a byte of a block in the image.
inline std::size_t inBlock(int layer, std::size_t offset) {
    return static_cast<std::size_t>(layer) * 254 + offset;
}

inline Image filledImage() {
    Image image{};
    for (std::size_t i = 0; i < image.size(); ++i) {
        image[i] = filling(i);
    }
    return image;
}

/// That `write` changed exactly the byte at `position`, into 0.
template <typename Write>
void expectOneByteChanged(std::size_t position, Write write) {
    Image image = filledImage();
    write(image);
    Image expected = filledImage();
    expected[position] = 0;
    EXPECT_EQ(image, expected) << "byte " << position;
}

}  // namespace config
