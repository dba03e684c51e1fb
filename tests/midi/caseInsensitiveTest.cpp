#include "midi/caseInsensitive.h"

#include <gtest/gtest.h>

#include <string>

namespace midi {
namespace {

TEST(IgnoringCase, OrdersByLettersAndNotByCase) {
    EXPECT_TRUE(compareIgnoringCase("alpha", "BETA") < 0);
    EXPECT_TRUE(compareIgnoringCase("Beta", "alpha") > 0);
    EXPECT_TRUE(compareIgnoringCase("Tormelk", "tORMELK") == 0);
    EXPECT_TRUE(compareIgnoringCase("", "") == 0);
}

TEST(IgnoringCase, PutsAShorterTextBeforeItsContinuation) {
    EXPECT_TRUE(compareIgnoringCase("Port", "port 1") < 0);
    EXPECT_TRUE(compareIgnoringCase("port 1", "PORT") > 0);
    EXPECT_TRUE(compareIgnoringCase("", "a") < 0);
}

TEST(IgnoringCase, KnowsTheLettersOfOtherScripts) {
    EXPECT_TRUE(compareIgnoringCase("ÄÖÜ", "äöü") == 0);
    EXPECT_TRUE(compareIgnoringCase("ΩΔ", "ωδ") == 0);
    EXPECT_TRUE(compareIgnoringCase("МИДИ", "миди") == 0);
    EXPECT_TRUE(startsWithIgnoringCase("клавиатура 1", "КЛАВИАТУРА"));
}

TEST(IgnoringCase, TakesBytesThatAreNoTextAsTheyAre) {
    const std::string broken = "a\xFF\xC3";
    EXPECT_TRUE(compareIgnoringCase(broken, "A\xFF\xC3") == 0);
    EXPECT_TRUE(compareIgnoringCase(broken, "A\xFE\xC3") > 0);
    EXPECT_TRUE(startsWithIgnoringCase(broken, "a\xFF"));
    EXPECT_TRUE(compareIgnoringCase("\xE2\x82", "\xE2") > 0);
    EXPECT_TRUE(compareIgnoringCase("\xF4\x90\x80\x80", "\xF4\x90\x80\x80") == 0);
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
