#include "config/buildImageAndStores.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "config/factorySetup.h"

namespace config {
namespace {

/// Bytes that start-up does not write keep this value in these tests.
constexpr std::uint8_t untouched = 0xAA;

class StartUp : public testing::Test {
protected:
    StartUp() {
        sysData.fill(untouched);
        stores.SysBuf_MCP.fill(untouched);
        stores.SysBuf_usrdef.fill(untouched);
        buildImageAndStores(sysData, stores);
    }

    static std::uint8_t byte(int value) { return static_cast<std::uint8_t>(value); }

    /// Header, block number and the three areas of one layer; 247 bytes.
    template <typename Kind>
    static std::vector<std::uint8_t> beginningOfBlock(int layer, Kind kind) {
        std::vector<std::uint8_t> block = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, byte(layer + 1)};
        for (int control = 0; control < 80; ++control) {
            block.push_back(byte(factory::channel(layer, control)));
        }
        for (int control = 0; control < 80; ++control) {
            block.push_back(byte(factory::number(layer, control)));
        }
        for (int control = 0; control < 80; ++control) {
            block.push_back(byte(factory::toggle(layer, control) | kind(layer, control)));
        }
        return block;
    }

    template <typename Bytes>
    static void expectBytes(const Bytes& bytes, const std::vector<std::uint8_t>& expected) {
        ASSERT_LE(expected.size(), bytes.size());
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const std::uint8_t wanted = i < expected.size() ? expected[i] : untouched;
            EXPECT_EQ(bytes[i], wanted) << "byte " << i;
        }
    }

    Image sysData{};
    Stores stores;
};

TEST_F(StartUp, EveryByteOfTheImageIsTheFactorys) {
    std::vector<std::uint8_t> expected;
    for (int layer = 0; layer < 4; ++layer) {
        const std::vector<std::uint8_t> block = beginningOfBlock(layer, factory::kind);
        expected.insert(expected.end(), block.begin(), block.end());
        const bool first = layer == 0;
        for (const int trailerByte : {first ? 0x7F : 1, 1, first ? 100 : 64, 1, 0, 0, 0xF7}) {
            expected.push_back(byte(trailerByte));
        }
    }
    ASSERT_EQ(expected.size(), 1016U);
    expectBytes(sysData, expected);
}

TEST_F(StartUp, EveryByteOfTheFactoryStoreIsTheFactorysOrUntouched) {
    std::vector<std::uint8_t> expected;
    for (int layer = 0; layer < 4; ++layer) {
        const std::vector<std::uint8_t> block = beginningOfBlock(layer, factory::kind);
        expected.insert(expected.end(), block.begin(), block.end());
        // 247: the pad curve stays out; 248: the mode; 249: the interval; 250 to 252 stay out.
        for (const int trailerByte : {int{untouched}, 1, layer == 0 ? 100 : 64, int{untouched},
                                      int{untouched}, int{untouched}, 0xF7}) {
            expected.push_back(byte(trailerByte));
        }
    }
    ASSERT_EQ(expected.size(), 1016U);
    EXPECT_EQ(stores.SysBuf_MCP.size(), 1024U);
    expectBytes(stores.SysBuf_MCP, expected);
}

TEST_F(StartUp, EveryByteOfTheUserDefinedStoreIsTheFactorysWithControlChangeFaders) {
    std::vector<std::uint8_t> expected;
    for (int layer = 0; layer < 4; ++layer) {
        const std::vector<std::uint8_t> block = beginningOfBlock(layer, factory::userKind);
        expected.insert(expected.end(), block.begin(), block.end());
    }
    ASSERT_EQ(expected.size(), 988U);
    // The last block's end mark lands seven bytes behind the block.
    expected.resize(994, untouched);
    expected.push_back(0xF7);
    ASSERT_GE(stores.SysBuf_usrdef.size(), 995U);
    expectBytes(stores.SysBuf_usrdef, expected);
}

TEST_F(StartUp, TheEndMarksInTheUserDefinedStoreAreOverwrittenByBlockNumbers) {
    EXPECT_EQ(stores.SysBuf_usrdef[253], 2);
    EXPECT_EQ(stores.SysBuf_usrdef[500], 3);
    EXPECT_EQ(stores.SysBuf_usrdef[747], 4);
    EXPECT_EQ(stores.SysBuf_usrdef[994], 0xF7);
}

TEST_F(StartUp, TheFramesAndTrailersOfAFreshImage) {
    for (std::size_t block = 0; block < 4; ++block) {
        const std::size_t start = 254 * block;
        EXPECT_EQ(sysData[start], 0xF0);
        EXPECT_EQ(sysData[start + 253], 0xF7);
        EXPECT_EQ(sysData[start + 6], block + 1);
        EXPECT_EQ(sysData[start + 248], 1);
        EXPECT_EQ(sysData[start + 249], block == 0 ? 100 : 64);
        EXPECT_EQ(sysData[start + 247], block == 0 ? 0x7F : 1);
        EXPECT_EQ(sysData[start + 250], 1);
        EXPECT_EQ(sysData[start + 251], 0);
        EXPECT_EQ(sysData[start + 252], 0);
    }
}

TEST_F(StartUp, BetweenItsFirstAndLastByteABlockStaysBelow0x80) {
    for (std::size_t block = 0; block < 4; ++block) {
        for (std::size_t offset = 1; offset < 253; ++offset) {
            EXPECT_LT(sysData[254 * block + offset], 0x80) << "block " << block << ", " << offset;
        }
    }
}

TEST_F(StartUp, Fader3OfLayer2BendsThePitchAndSendsControlChangeInUserDefinedMode) {
    EXPECT_EQ(sysData[508 + 7 + 59], 3);
    EXPECT_EQ(sysData[508 + 87 + 59], 0x3B);
    EXPECT_EQ(sysData[508 + 167 + 59], 0x0E);
    EXPECT_EQ(stores.SysBuf_MCP[508 + 7 + 59], 3);
    EXPECT_EQ(stores.SysBuf_MCP[508 + 87 + 59], 0x3B);
    EXPECT_EQ(stores.SysBuf_MCP[508 + 167 + 59], 0x0E);
    EXPECT_EQ(stores.SysBuf_usrdef[494 + 7 + 59], 3);
    EXPECT_EQ(stores.SysBuf_usrdef[494 + 87 + 59], 0x3B);
    EXPECT_EQ(stores.SysBuf_usrdef[494 + 167 + 59], 0x0B);
}

TEST_F(StartUp, Strip5HasTheNotesOfControls20To23) {
    for (std::size_t block = 0; block < 4; ++block) {
        EXPECT_EQ(sysData[254 * block + 87 + 20], 0x1D);
        EXPECT_EQ(sysData[254 * block + 87 + 21], 0x0D);
        EXPECT_EQ(sysData[254 * block + 87 + 22], 0x15);
        EXPECT_EQ(sysData[254 * block + 87 + 23], 0x05);
    }
}

TEST_F(StartUp, TheUserDefinedStoreHoldsData) {
    EXPECT_EQ(stores.SysBuf_usrdef[246], 0x09);
    EXPECT_TRUE(stores.userDefinedHoldsData());
}

TEST_F(StartUp, ImageAndStoresDifferInTheSwappedBytesOnlyByTheFadersOfTheUser) {
    for (std::size_t layer = 0; layer < 4; ++layer) {
        for (std::size_t offset = 7; offset < 246; ++offset) {
            const std::uint8_t inImage = sysData[254 * layer + offset];
            EXPECT_EQ(stores.SysBuf_MCP[254 * layer + offset], inImage);
            const bool faderMode = offset >= 167 + 56 && offset <= 167 + 64;
            const std::uint8_t inUserStore = stores.SysBuf_usrdef[247 * layer + offset];
            if (faderMode) {
                EXPECT_EQ(inImage, 0x0E);
                EXPECT_EQ(inUserStore, 0x0B);
            } else {
                EXPECT_EQ(inUserStore, inImage);
            }
        }
    }
}

TEST_F(StartUp, BuildingOnceMoreGivesTheSame) {
    const Image image = sysData;
    const auto factoryStore = stores.SysBuf_MCP;
    const auto userStore = stores.SysBuf_usrdef;
    for (std::size_t offset = 0; offset < 1016; ++offset) {
        sysData[offset] = 0x33;
    }
    buildImageAndStores(sysData, stores);
    EXPECT_EQ(sysData, image);
    EXPECT_EQ(stores.SysBuf_MCP, factoryStore);
    EXPECT_EQ(stores.SysBuf_usrdef, userStore);
}

TEST(FreshStores, AreEmptyUntilBuilt) {
    const Stores stores;
    EXPECT_FALSE(stores.userDefinedHoldsData());
    EXPECT_TRUE(std::all_of(stores.SysBuf_MCP.begin(), stores.SysBuf_MCP.end(),
                            [](std::uint8_t value) { return value == 0; }));
}

}  // namespace
}  // namespace config
