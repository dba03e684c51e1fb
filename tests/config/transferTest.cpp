#include "config/transfer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/control.h"
#include "config/startUp.h"

namespace config {
namespace {

TEST(Transfer, ABlockIsALayersBytesUnchanged) {
    Image sysData{};
    for (std::size_t i = 0; i < sysData.size(); ++i) {
        sysData[i] = static_cast<std::uint8_t>(i % 253);  // bytes of 0x80 or more included
    }
    for (std::size_t layer = 0; layer < 4; ++layer) {
        const auto block = layerBlock(sysData, static_cast<int>(layer));
        ASSERT_EQ(block.size(), 254U);
        for (std::size_t i = 0; i < block.size(); ++i) {
            EXPECT_EQ(block[i], (254 * layer + i) % 253);
        }
    }
}

TEST(Transfer, TheBlocksOfAFreshImageAreCompleteMessages) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    for (int layer = 0; layer < 4; ++layer) {
        const auto block = layerBlock(sysData, layer);
        EXPECT_THAT(std::vector<int>(block.begin(), block.begin() + 7),
                    testing::ElementsAre(0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, layer + 1));
        EXPECT_EQ(block.back(), 0xF7);
    }
}

TEST(Transfer, ABlockShowsTheImageAsItIsNow) {
    Image sysData{};
    const auto block = layerBlock(sysData, 2);
    setNumber(sysData, 2, 0, 0x42);
    EXPECT_EQ(block[87], 0x42);
}

TEST(Transfer, ThePauseAfterABlockIsTwoMilliseconds) {
    EXPECT_EQ(pauseAfterBlock.count(), 0.002);
}

TEST(Transfer, TheSecondFormOfMessageHasExactlyTheseBytes) {
    EXPECT_THAT(secondMessageForm,
                testing::ElementsAre(0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67, 0x67,
                                     0x67, 0x67, 0x00, 0x67, 0xF7));
}

}  // namespace
}  // namespace config
