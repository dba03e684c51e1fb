#include "platform/alsa/clientPool.h"

#include <gtest/gtest.h>

namespace platform::alsa {
namespace {

TEST(ClientPool, AShortMessageTakesOneCell) {
    EXPECT_EQ(cellsFor(1), 1U);
    EXPECT_EQ(cellsFor(3), 1U);
}

TEST(ClientPool, ASysExTakesACellMoreThanItsBytesFill) {
    EXPECT_EQ(cellsFor(28), 2U);
    EXPECT_EQ(cellsFor(29), 3U);
    EXPECT_EQ(cellsFor(254), 11U);
}

TEST(ClientPool, WithoutASequencerThereIsNoLevel) {
    EXPECT_EQ(levelOfPool(-1, 128), std::nullopt);
}

}  // namespace
}  // namespace platform::alsa
