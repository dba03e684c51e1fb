// In whatever order modes change and bytes are edited, the frames of the four messages stay whole.

#include <gtest/gtest.h>

#include <random>

#include "config/buildImageAndStores.h"
#include "config/control.h"
#include "config/stores.h"

namespace config {
namespace {

class SwapProperty : public testing::TestWithParam<unsigned> {
protected:
    SwapProperty() { buildImageAndStores(sysData, stores); }

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

    void act() {
        switch (below(8)) {
            case 0:
                keepUserDefined(sysData, stores);
                break;
            case 1:
                loadFactory(sysData, stores);
                break;
            case 2:
                restoreUserDefined(sysData, stores);
                break;
            case 3:
                keepWholeUserDefined(sysData, stores);
                break;
            case 4:
                setChannel(sysData, below(4), below(80), below(16));
                break;
            case 5:
                setNumber(sysData, below(4), below(80), below(128));
                break;
            case 6:
                setMode(sysData, below(4), below(80), below(2) * 0x40 + 9 + below(6));
                break;
            default:
                setTrailerOfEveryLayer(sysData, dawModeOffset, below(6));
                break;
        }
    }

    void expectFrames() {
        const std::array<std::uint8_t, 6> header = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E};
        for (std::size_t b = 0; b < 4; ++b) {
            for (std::size_t i = 0; i < header.size(); ++i) {
                ASSERT_EQ(sysData[254 * b + i], header.at(i));
                ASSERT_EQ(stores.SysBuf_usrdef[247 * b + i], header.at(i));
            }
            ASSERT_EQ(sysData[254 * b + 6], b + 1);
            ASSERT_EQ(stores.SysBuf_usrdef[247 * b + 6], b + 1);
            ASSERT_EQ(sysData[254 * b + 253], 0xF7);
            ASSERT_EQ(sysData[254 * b + 248], sysData[248]);
            for (std::size_t offset = 1; offset < 253; ++offset) {
                ASSERT_LT(sysData[254 * b + offset], 0x80);
            }
        }
    }

    Image sysData{};
    Stores stores;
    std::mt19937 random{GetParam()};
};

TEST_P(SwapProperty, FramesAndSevenBitBytesLast) {
    const auto factoryStore = stores.SysBuf_MCP;
    for (int step = 0; step < 1000; ++step) {
        act();
        expectFrames();
    }
    EXPECT_EQ(stores.SysBuf_MCP, factoryStore);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SwapProperty, testing::Range(1U, 6U));

}  // namespace
}  // namespace config
