#include "config/factoryTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "config/factorySetup.h"

namespace config {
namespace {

using testing::ElementsAre;

template <typename Rule>
void expectTable(const FactoryTable& table, Rule rule) {
    ASSERT_EQ(table.size(), 320U);
    for (int layer = 0; layer < 4; ++layer) {
        for (int control = 0; control < 80; ++control) {
            const std::size_t entry =
                static_cast<std::size_t>(layer) * 80 + static_cast<std::size_t>(control);
            EXPECT_EQ(table[entry], rule(layer, control))
                << "layer " << layer << ", control " << control;
        }
    }
}

std::vector<int> row(const FactoryTable& table, std::ptrdiff_t layer, std::ptrdiff_t first,
                     std::ptrdiff_t count) {
    const auto begin = table.begin() + 80 * layer + first;
    return {begin, begin + count};
}

TEST(FactoryTables, ChannelsAreZeroButForFadersAndThePadsOfLayers1To3) {
    expectTable(key_chan, factory::channel);
}

TEST(FactoryTables, NumbersFollowTheGroupsOfControls) {
    expectTable(preset, factory::number);
}

TEST(FactoryTables, KindsAreNotesControlChangesAndPitchBends) {
    expectTable(key_mod, factory::kind);
}

TEST(FactoryTables, TheKeysOfLayers2And3Toggle) {
    expectTable(toggl_flg, factory::toggle);
}

TEST(FactoryTables, AStripOwnsFourNeighbours) {
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_THAT(row(preset, layer, 0, 4), ElementsAre(0x18, 0x08, 0x10, 0x00));
        EXPECT_THAT(row(preset, layer, 20, 4), ElementsAre(0x1D, 0x0D, 0x15, 0x05));
        EXPECT_THAT(row(preset, layer, 28, 4), ElementsAre(0x1F, 0x0F, 0x17, 0x07));
    }
}

TEST(FactoryTables, TheGroupsHaveTheirNumbersInEveryLayer) {
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_THAT(row(preset, layer, 32, 4), ElementsAre(0x30, 0x31, 0x2E, 0x2F));
        EXPECT_THAT(row(preset, layer, 36, 4), ElementsAre(0x5E, 0x5D, 0x5B, 0x5C));
        EXPECT_THAT(row(preset, layer, 40, 8),
                    ElementsAre(0x20, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27));
        EXPECT_THAT(row(preset, layer, 48, 8),
                    ElementsAre(0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17));
        EXPECT_THAT(row(preset, layer, 56, 9),
                    ElementsAre(0x38, 0x39, 0x3A, 0x3B, 0x3C, 0x3D, 0x3E, 0x3F, 0x40));
        EXPECT_THAT(row(preset, layer, 74, 6), ElementsAre(0x4A, 0x4B, 0x4C, 0x4D, 0x4E, 0x4F));
        EXPECT_THAT(row(key_chan, layer, 56, 9), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8));
    }
}

TEST(FactoryTables, ThePadsDifferByLayer) {
    EXPECT_THAT(row(preset, 0, 65, 9),
                ElementsAre(0x56, 0x5B, 0x5F, 0x5E, 0x4A, 0x4E, 0x5C, 0x4B, 0x5D));
    EXPECT_THAT(row(preset, 1, 65, 9),
                ElementsAre(0x2C, 0x26, 0x2D, 0x2A, 0x2B, 0x30, 0x24, 0x2F, 0x28));
    for (const int layer : {2, 3}) {
        EXPECT_THAT(row(preset, layer, 65, 9),
                    ElementsAre(0x25, 0x2C, 0x33, 0x26, 0x30, 0x2F, 0x2E, 0x37, 0x24));
    }
    EXPECT_THAT(row(key_chan, 0, 65, 9), testing::Each(0));
    EXPECT_THAT(row(key_mod, 0, 65, 9), testing::Each(0x09));
    for (const int layer : {1, 2, 3}) {
        EXPECT_THAT(row(key_chan, layer, 65, 9), testing::Each(9));
        EXPECT_THAT(row(key_mod, layer, 65, 9), testing::Each(0x19));
    }
}

TEST(FactoryTables, NothingReaches0x80) {
    for (const FactoryTable* table : {&key_chan, &preset, &key_mod, &toggl_flg}) {
        EXPECT_THAT(*table, testing::Each(testing::Lt(0x80)));
    }
}

TEST(HeaderTemplate, HasSevenBytesAndZerosBehindThem) {
    const std::array<std::uint8_t, 32> expected = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, 0x01};
    EXPECT_EQ(SysBuf_init, expected);
    EXPECT_EQ(headerSize, 6U);
}

TEST(PadOrder, GridPositionsHaveTheirControls) {
    EXPECT_THAT(aPadMap, ElementsAre(70, 69, 72, 65, 66, 71, 73, 68, 67));
}

TEST(PadOrder, ControlsHaveTheirGridPositions) {
    EXPECT_THAT(aMapPad, ElementsAre(68, 69, 73, 72, 66, 65, 70, 67, 71));
}

TEST(PadOrder, TheTwoMapsAreInverse) {
    for (int position = 0; position < 9; ++position) {
        const int control = aPadMap.at(static_cast<std::size_t>(position));
        EXPECT_EQ(aMapPad.at(static_cast<std::size_t>(control - 65)), 65 + position);
    }
    for (int control = 65; control <= 73; ++control) {
        const int position = aMapPad.at(static_cast<std::size_t>(control - 65)) - 65;
        EXPECT_EQ(aPadMap.at(static_cast<std::size_t>(position)), control);
    }
}

}  // namespace
}  // namespace config
