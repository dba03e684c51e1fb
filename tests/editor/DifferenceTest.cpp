#include "editor/Difference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace editor {
namespace {

using Bytes = std::array<std::byte, 1000>;

Bytes randomBytes(std::mt19937& random) {
    Bytes bytes{};
    std::generate(bytes.begin(), bytes.end(),
                  [&random] { return std::byte{static_cast<unsigned char>(random())}; });
    return bytes;
}

TEST(Difference, GivesEitherSideFromTheOther) {
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        const Bytes one = randomBytes(random);
        Bytes other = one;
        for (int changes = round % 40; changes > 0; --changes) {
            other.at(random() % other.size()) = std::byte{static_cast<unsigned char>(random())};
        }
        const Difference difference(one, other);
        Bytes forth = one;
        difference.applyTo(forth);
        EXPECT_EQ(forth, other);
        difference.applyTo(forth);
        EXPECT_EQ(forth, one);
    }
}

TEST(Difference, ReachesTheFirstAndTheLastByte) {
    const Bytes one{};
    Bytes other{};
    other.front() = std::byte{1};
    other.back() = std::byte{2};
    Bytes bytes = one;
    Difference(one, other).applyTo(bytes);
    EXPECT_EQ(bytes, other);
}

TEST(Difference, KeepsNothingOfWhatIsEqual) {
    const Bytes one{};
    EXPECT_EQ(Difference(one, one).memory(), 0U);
    Bytes other = one;
    other.at(500) = std::byte{1};
    EXPECT_LE(Difference(one, other).memory(), 8U);
}

TEST(Difference, OfEverythingIsHardlyLargerThanIt) {
    std::mt19937 random(2);
    EXPECT_LE(Difference(randomBytes(random), randomBytes(random)).memory(), 1'100U);
}

}  // namespace
}  // namespace editor
