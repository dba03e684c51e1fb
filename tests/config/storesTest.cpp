#include "config/stores.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "config/buildImageAndStores.h"
#include "config/swappedBytes.h"

namespace config {
namespace {

/// Image and stores whose bytes tell where they came from: with every pattern the three differ at
/// every place, and no pattern repeats at the distance at which another does.
struct Filled {
    explicit Filled(int pattern) {
        fill(sysData, pattern, 1);
        fill(stores.SysBuf_MCP, pattern, 2);
        fill(stores.SysBuf_usrdef, pattern, 3);
    }

    template <typename Bytes>
    static void fill(Bytes& bytes, int pattern, std::size_t kind) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const std::size_t place = pattern == 0 ? i % 61 : (pattern == 1 ? i % 59 : i / 17);
            bytes[i] = static_cast<std::uint8_t>(64 * kind + place % 64);
        }
    }

    Image sysData{};
    Stores stores;
};

class Swaps : public testing::TestWithParam<int> {
protected:
    void expectSame(const Filled& after, const Filled& wanted) {
        for (std::size_t i = 0; i < 1024; ++i) {
            EXPECT_EQ(after.sysData[i], wanted.sysData[i]) << "image byte " << i;
            EXPECT_EQ(after.stores.SysBuf_MCP[i], wanted.stores.SysBuf_MCP[i])
                << "factory store byte " << i;
        }
        for (std::size_t i = 0; i < after.stores.SysBuf_usrdef.size(); ++i) {
            EXPECT_EQ(after.stores.SysBuf_usrdef[i], wanted.stores.SysBuf_usrdef[i])
                << "user-defined store byte " << i;
        }
    }

    template <typename Copy>
    static void forSwappedBytes(Copy copy) {
        for (int layer = 0; layer < 4; ++layer) {
            for (std::size_t offset = 0; offset < 254; ++offset) {
                if (isSwapped(layer, offset)) {
                    const auto b = static_cast<std::size_t>(layer);
                    copy(254 * b + offset, 247 * b + offset);
                }
            }
        }
    }

    Filled data{GetParam()};
    Filled expected{GetParam()};
};

TEST_P(Swaps, KeepingTheUsersCopiesTheSwappedBytesOfTheImageToTheirStore) {
    keepUserDefined(data.sysData, data.stores);
    forSwappedBytes([&](std::size_t image, std::size_t user) {
        expected.stores.SysBuf_usrdef[user] = expected.sysData[image];
    });
    expectSame(data, expected);
}

TEST_P(Swaps, LoadingTheFactorysCopiesTheSwappedBytesOfItsStoreToTheImage) {
    loadFactory(data.sysData, data.stores);
    forSwappedBytes([&](std::size_t image, std::size_t) {
        expected.sysData[image] = expected.stores.SysBuf_MCP[image];
    });
    expectSame(data, expected);
}

TEST_P(Swaps, RestoringTheUsersCopiesTheSwappedBytesOfTheirStoreToTheImage) {
    restoreUserDefined(data.sysData, data.stores);
    forSwappedBytes([&](std::size_t image, std::size_t user) {
        expected.sysData[image] = expected.stores.SysBuf_usrdef[user];
    });
    expectSame(data, expected);
}

TEST_P(Swaps, KeepingTheWholeOfTheUsersCopies247BytesOfEveryLayer) {
    keepWholeUserDefined(data.sysData, data.stores);
    for (std::size_t b = 0; b < 4; ++b) {
        for (std::size_t offset = 0; offset < 247; ++offset) {
            expected.stores.SysBuf_usrdef[247 * b + offset] = expected.sysData[254 * b + offset];
        }
    }
    expectSame(data, expected);
}

INSTANTIATE_TEST_SUITE_P(Patterns, Swaps, testing::Values(0, 1, 2));

TEST(SwapRanges, AreTwoRowsOfThreeHalfOpenRanges) {
    EXPECT_THAT(aSysDatIndx,
                testing::ElementsAre(7, 80, 81, 160, 161, 246, 7, 71, 81, 151, 161, 246));
}

TEST(SwapRanges, LeaveOutWhatStaysInForceInEveryMode) {
    const auto swapped = [](int layer) {
        int count = 0;
        for (std::size_t offset = 0; offset < 254; ++offset) {
            count += isSwapped(layer, offset) ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(swapped(0), 73 + 79 + 85);
    for (const int layer : {1, 2, 3}) {
        EXPECT_EQ(swapped(layer), 64 + 70 + 85);
    }
}

TEST(UserDefinedStore, HoldsDataWhileItsMarkIsNotZero) {
    Stores stores;
    EXPECT_EQ(Stores::holdsDataMark, 246U);
    stores.SysBuf_usrdef.fill(0xFF);
    stores.SysBuf_usrdef[246] = 0;
    EXPECT_FALSE(stores.userDefinedHoldsData());
    stores.SysBuf_usrdef.fill(0);
    for (const std::uint8_t mark : {std::uint8_t{1}, std::uint8_t{0x09}, std::uint8_t{0xFF}}) {
        stores.SysBuf_usrdef[246] = mark;
        EXPECT_TRUE(stores.userDefinedHoldsData());
    }
}

TEST(UserDefinedStore, ASwapNeverChangesTheMarkButKeepingTheWholeDoes) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    sysData[246] = 0;
    keepUserDefined(sysData, stores);
    EXPECT_EQ(stores.SysBuf_usrdef[246], 0x09);
    keepWholeUserDefined(sysData, stores);
    EXPECT_FALSE(stores.userDefinedHoldsData());
    sysData[246] = 0x09;
    keepWholeUserDefined(sysData, stores);
    EXPECT_TRUE(stores.userDefinedHoldsData());
}

TEST(UserDefinedStore, IsLargeEnoughForTheLastEndMark) {
    EXPECT_GE(Stores{}.SysBuf_usrdef.size(), 995U);
    EXPECT_EQ(userBlockSize, 247U);
}

/// An image in which the user has changed every byte between the frames.
Image editedImage() {
    Image image{};
    Stores stores;
    buildImageAndStores(image, stores);
    for (std::size_t b = 0; b < 4; ++b) {
        for (std::size_t offset = 7; offset < 253; ++offset) {
            image[254 * b + offset] ^= 0x2A;
        }
    }
    return image;
}

TEST(ModeChange, ToAFactoryModeAndBackRestoresTheUsersEdits) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    const Image factory = sysData;
    const Image edited = editedImage();
    sysData = edited;

    keepUserDefined(sysData, stores);
    loadFactory(sysData, stores);
    for (int layer = 0; layer < 4; ++layer) {
        for (std::size_t offset = 0; offset < 254; ++offset) {
            const std::size_t i = static_cast<std::size_t>(layer) * 254 + offset;
            EXPECT_EQ(sysData[i], isSwapped(layer, offset) ? factory[i] : edited[i]) << i;
        }
    }

    restoreUserDefined(sysData, stores);
    EXPECT_EQ(sysData, edited);
}

TEST(ModeChange, KeepsWhatAFactoryModeDidToThePadsOfLayers1To3) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    keepUserDefined(sysData, stores);
    loadFactory(sysData, stores);
    for (std::size_t b = 1; b < 4; ++b) {
        for (std::size_t control = 64; control <= 73; ++control) {
            sysData[254 * b + 7 + control] = 0x05;
            sysData[254 * b + 87 + control] = 0x66;
        }
    }
    sysData[7 + 73] = 0x07;
    sysData[87 + 73] = 0x77;
    const Image edited = sysData;
    restoreUserDefined(sysData, stores);
    for (std::size_t b = 1; b < 4; ++b) {
        for (std::size_t control = 64; control <= 73; ++control) {
            EXPECT_EQ(sysData[254 * b + 7 + control], 0x05);
            EXPECT_EQ(sysData[254 * b + 87 + control], 0x66);
        }
    }
    EXPECT_EQ(sysData[7 + 73], 0x07);
    EXPECT_EQ(sysData[87 + 73], 0x77);
    EXPECT_EQ(sysData, edited);
}

TEST(ModeChange, BetweenFactoryAssignmentsChangesNothing) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    const Image fresh = sysData;
    loadFactory(sysData, stores);
    EXPECT_EQ(sysData, fresh);
}

TEST(ModeChange, FromAFreshStartToUserDefinedMakesTheFadersSendControlChange) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    Image expected = sysData;
    for (std::size_t b = 0; b < 4; ++b) {
        for (std::size_t fader = 56; fader <= 64; ++fader) {
            expected[254 * b + 167 + fader] = 0x0B;
        }
    }
    restoreUserDefined(sysData, stores);
    EXPECT_EQ(sysData, expected);
}

}  // namespace
}  // namespace config
