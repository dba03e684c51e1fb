#include "platform/alsa/rawDevice.h"

#include <gtest/gtest.h>

namespace platform::alsa {
namespace {

const std::string threeOutputs =
    "Tormelk\n"
    "\n"
    "Output 0\n"
    "  Tx bytes     : 254\n"
    "  Owner PID    : 123\n"
    "  Mode         : native\n"
    "  Buffer size  : 4096\n"
    "  Avail        : 3842\n"
    "Output 1\n"
    "  Tx bytes     : 0\n"
    "Output 10\n"
    "  Tx bytes     : 0\n"
    "  Mode         : native\n"
    "  Buffer size  : 2048\n"
    "  Avail        : 7\n"
    "Input 0\n"
    "  Rx bytes     : 0\n"
    "  Buffer size  : 100\n"
    "  Avail        : 50\n"
    "  Overruns     : 0\n";

TEST(RawDevice, TheLevelOfAnOutputIsItsSpaceAndItsSize) {
    EXPECT_EQ(outputLevelIn(threeOutputs, 0), (FillLevel{3842, 4096}));
}

TEST(RawDevice, AnOutputIsNotTakenForAnotherWhoseNumberBeginsAlike) {
    EXPECT_EQ(outputLevelIn(threeOutputs, 10), (FillLevel{7, 2048}));
}

TEST(RawDevice, AnOutputThatNobodyHasOpenHasNoLevel) {
    EXPECT_EQ(outputLevelIn(threeOutputs, 1), std::nullopt);
}

TEST(RawDevice, AnOutputThatIsNotThereHasNoLevel) {
    EXPECT_EQ(outputLevelIn(threeOutputs, 2), std::nullopt);
    EXPECT_EQ(outputLevelIn("", 0), std::nullopt);
}

TEST(RawDevice, AnInputIsNoOutput) {
    EXPECT_EQ(outputLevelIn("Input 0\n  Buffer size  : 100\n  Avail        : 50\n", 0),
              std::nullopt);
}

TEST(RawDevice, ALevelThatMakesNoSenseIsNone) {
    EXPECT_EQ(outputLevelIn("Output 0\n  Buffer size  : 4096\n  Avail        : many\n", 0),
              std::nullopt);
    EXPECT_EQ(outputLevelIn("Output 0\n  Buffer size  : 4096\n  Avail        :\n", 0),
              std::nullopt);
    EXPECT_EQ(outputLevelIn("Output 0\n  Avail        : 10\n", 0), std::nullopt);
}

TEST(RawDevice, TheOwnerOfAnOutputIsTheOneThatHasItOpen) {
    EXPECT_EQ(ownerOfOutputIn(threeOutputs, 0), 123);
    EXPECT_EQ(ownerOfOutputIn(threeOutputs, 1), std::nullopt);
    EXPECT_EQ(ownerOfOutputIn(threeOutputs, 2), std::nullopt);
}

TEST(RawDevice, NobodyHoldsADeviceThatIsNotThere) {
    EXPECT_EQ(programThatHolds(31, 0), "");
}

TEST(RawDevice, ADeviceThatIsNotThereHasNoLevel) {
    EXPECT_EQ(levelOfRawDevice(31, 0), std::nullopt);
    EXPECT_EQ(levelOfRawDevice(-1, 0), std::nullopt);
}

}  // namespace
}  // namespace platform::alsa
