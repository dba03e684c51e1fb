#include "sending/pace.h"

#include <gtest/gtest.h>

namespace sending {
namespace {

TEST(Pace, AnImageTakesWholeBlocks) {
    EXPECT_EQ(blocksFor(0), 0U);
    EXPECT_EQ(blocksFor(1), 1U);
    EXPECT_EQ(blocksFor(512), 1U);
    EXPECT_EQ(blocksFor(513), 2U);
    EXPECT_EQ(blocksFor(1000), 2U);
    EXPECT_EQ(blocksFor(40000), 79U);
    EXPECT_EQ(blocksFor(57343), 112U);
    EXPECT_EQ(blocksFor(0xFFFFFFFF), 0x800000U);
}

TEST(Pace, ABlockTakes530PausesAndATenthOfASecond) {
    EXPECT_NEAR(timeOfBlocks(1).count(), 1.16, 1e-9);
    EXPECT_NEAR(timeOfBlocks(79).count(), 91.64, 1e-9);
    EXPECT_EQ(timeOfBlocks(0).count(), 0);
}

TEST(Pace, AnUploadOf40000BytesTakesAboutAMinuteAndAHalf) {
    // Connect 0.134 s, erase 0.117 s, reset 0.2 s.
    EXPECT_NEAR(timeOfUpload(0).count(), 0.451, 1e-9);
    EXPECT_NEAR(timeOfUpload(79).count(), 92.091, 1e-9);
}

TEST(Pace, TimesAreRoundedUpForPeople) {
    EXPECT_EQ(inWords(Seconds(0)), "0 s");
    EXPECT_EQ(inWords(Seconds(0.001)), "1 s");
    EXPECT_EQ(inWords(Seconds(1)), "1 s");
    EXPECT_EQ(inWords(Seconds(59)), "59 s");
    EXPECT_EQ(inWords(Seconds(59.5)), "1 min 0 s");
    EXPECT_EQ(inWords(Seconds(92.091)), "1 min 33 s");
    EXPECT_EQ(inWords(Seconds(3600)), "1 h 0 min");
    EXPECT_EQ(inWords(Seconds(2 * 3600 + 5 * 60 + 59)), "2 h 5 min");
    EXPECT_EQ(inWords(timeOfBlocks(50)), "58 s") << "58 s with an error in the last digit";
}

TEST(Pace, NumbersHaveCommas) {
    EXPECT_EQ(inWords(std::uint64_t{0}), "0");
    EXPECT_EQ(inWords(std::uint64_t{999}), "999");
    EXPECT_EQ(inWords(std::uint64_t{1000}), "1,000");
    EXPECT_EQ(inWords(std::uint64_t{57343}), "57,343");
    EXPECT_EQ(inWords(std::uint64_t{123456}), "123,456");
    EXPECT_EQ(inWords(std::uint64_t{4294967296}), "4,294,967,296");
}

}  // namespace
}  // namespace sending
