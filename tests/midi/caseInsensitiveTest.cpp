#include "midi/caseInsensitive.h"

#include <gtest/gtest.h>

#include <compare>
#include <string>

namespace midi {
namespace {

TEST(IgnoringCase, OrdersByLettersAndNotByCase) {
    EXPECT_TRUE(std::is_lt(compareIgnoringCase("alpha", "BETA")));
    EXPECT_TRUE(std::is_gt(compareIgnoringCase("Beta", "alpha")));
    EXPECT_TRUE(std::is_eq(compareIgnoringCase("Tormelk", "tORMELK")));
    EXPECT_TRUE(std::is_eq(compareIgnoringCase("", "")));
}

TEST(IgnoringCase, PutsAShorterTextBeforeItsContinuation) {
    EXPECT_TRUE(std::is_lt(compareIgnoringCase("Port", "port 1")));
    EXPECT_TRUE(std::is_gt(compareIgnoringCase("port 1", "PORT")));
    EXPECT_TRUE(std::is_lt(compareIgnoringCase("", "a")));
}

TEST(IgnoringCase, KnowsTheLettersOfOtherScripts) {
    EXPECT_TRUE(std::is_eq(compareIgnoringCase("ÄÖÜ", "äöü")));
    EXPECT_TRUE(std::is_eq(compareIgnoringCase("ΩΔ", "ωδ")));
    EXPECT_TRUE(std::is_eq(compareIgnoringCase("МИДИ", "миди")));
    EXPECT_TRUE(startsWithIgnoringCase("клавиатура 1", "КЛАВИАТУРА"));
}

TEST(IgnoringCase, TakesBytesThatAreNoTextAsTheyAre) {
    const std::string broken = "a\xFF\xC3";
    EXPECT_TRUE(std::is_eq(compareIgnoringCase(broken, "A\xFF\xC3")));
    EXPECT_TRUE(std::is_gt(compareIgnoringCase(broken, "A\xFE\xC3")));
    EXPECT_TRUE(startsWithIgnoringCase(broken, "a\xFF"));
    EXPECT_TRUE(std::is_gt(compareIgnoringCase("\xE2\x82", "\xE2")));
    EXPECT_TRUE(std::is_eq(compareIgnoringCase("\xF4\x90\x80\x80", "\xF4\x90\x80\x80")));
}

TEST(IgnoringCase, TakesTheBytesOfACharacterTogether) {
    // The first and the last character of each length: their first byte alone is no part of them.
    for (const char* character : {"\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\xBF\xBF",
                                  "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        const std::string first(character, 1);
        EXPECT_FALSE(startsWithIgnoringCase(character, first)) << character;
        EXPECT_TRUE(std::is_lt(compareIgnoringCase(character, first))) << character;
    }
}

TEST(IgnoringCase, TakesBytesThatNoCharacterBeginsWithOneByOne) {
    for (const char* bytes : {"\x80\x80", "\xBF\x80", "\xC0\x80", "\xC1\xBF", "\xF5\x80\x80\x80",
                              "\xF8\x88\x80\x80", "\xFF\xBF\xBF\xBF"}) {
        const std::string first(bytes, 1);
        EXPECT_TRUE(startsWithIgnoringCase(bytes, first)) << first;
        EXPECT_TRUE(std::is_gt(compareIgnoringCase(bytes, first))) << first;
    }
}

TEST(IgnoringCase, ComparesOnlyAsManyCharactersAsThePrefixHas) {
    EXPECT_TRUE(startsWithIgnoringCase("tormelk midi", "Tormelk"));
    EXPECT_TRUE(startsWithIgnoringCase("Tormelk", "Tormelk"));
    EXPECT_TRUE(startsWithIgnoringCase("x", ""));
    EXPECT_FALSE(startsWithIgnoringCase("Torm", "Tormelk"));
    EXPECT_FALSE(startsWithIgnoringCase("A Tormelk", "Tormelk"));
}

}  // namespace
}  // namespace midi
