#include "texts/hexadecimal.h"

#include <gtest/gtest.h>

#include <array>

namespace texts {
namespace {

TEST(Hexadecimal, WritesAByteWithTwoCapitalDigits) {
    EXPECT_EQ(digits(0x0F), "0F");
    EXPECT_EQ(digits(0xF0), "F0");
    EXPECT_EQ(hexadecimal(std::uint8_t{0}), "0x00");
    EXPECT_EQ(hexadecimal(std::uint8_t{0xAB}), "0xAB");
}

TEST(Hexadecimal, WritesARowOfBytesWithBlanksBetween) {
    constexpr std::array<std::uint8_t, 3> bytes = {0xF0, 0x1D, 0x03};
    EXPECT_EQ(hexadecimal(std::span(bytes)), "F0 1D 03");
    EXPECT_EQ(hexadecimal(std::span(bytes).first(1)), "F0");
    EXPECT_EQ(hexadecimal(std::span(bytes).first(0)), "");
}

}  // namespace
}  // namespace texts
