#include "texts/asciiCase.h"

#include <gtest/gtest.h>

namespace texts {
namespace {

TEST(AsciiCase, LowersCapitalsAlone) {
    EXPECT_EQ(lowerCase('A'), 'a');
    EXPECT_EQ(lowerCase('Z'), 'z');
    for (const char other : {'@', '[', 'a', 'z', '0', '_', '\xC4'}) {
        EXPECT_EQ(lowerCase(other), other);
    }
}

TEST(AsciiCase, FindsTheBeginningOfATextInAnyCase) {
    EXPECT_TRUE(beginsWithIgnoringCase("TorMelk 2.bin", "tormelk"));
    EXPECT_TRUE(beginsWithIgnoringCase("tormelk", "TORMELK"));
    EXPECT_TRUE(beginsWithIgnoringCase("tormelk", ""));
    EXPECT_FALSE(beginsWithIgnoringCase("tormel", "tormelk"));
    EXPECT_FALSE(beginsWithIgnoringCase("my tormelk", "tormelk"));
}

}  // namespace
}  // namespace texts
