#include "config/Configuration.h"

#include <gtest/gtest.h>

#include "config/buildImageAndStores.h"
#include "config/filledImage.h"

namespace config {
namespace {

Configuration fresh() {
    Configuration configuration;
    buildImageAndStores(configuration.sysData, configuration.stores);
    return configuration;
}

TEST(Configuration, IsEqualToItsCopyUntilAByteOfEitherChanges) {
    const Configuration one = fresh();
    Configuration other = one;
    EXPECT_EQ(one, other);
    other.sysData[1015] ^= 1;
    EXPECT_NE(one, other);
    other = one;
    other.stores.SysBuf_usrdef[0] ^= 1;
    EXPECT_NE(one, other);
    other = one;
    other.stores.SysBuf_MCP[100] ^= 1;
    EXPECT_NE(one, other);
}

TEST(UserDefinedImage, IsTheImageItselfInUserDefinedMode) {
    Configuration configuration = fresh();
    configuration.sysData = filledImage();
    configuration.sysData[248] = 0;
    EXPECT_EQ(userDefinedImage(configuration), configuration.sysData);
}

TEST(UserDefinedImage, IsWhatAReturnFromADawModeBringsBack) {
    Configuration configuration = fresh();
    configuration.sysData[248] = 4;
    configuration.stores.SysBuf_usrdef[7 + 20] = 9;
    configuration.sysData[7 + 20] = 3;
    configuration.sysData[inBlock(1, 7 + 73)] = 5;  // a pad's, the same in every mode
    const Image image = userDefinedImage(configuration);
    EXPECT_EQ(image[7 + 20], 9);
    EXPECT_EQ(image[inBlock(1, 7 + 73)], 5);
    EXPECT_EQ(configuration.sysData[7 + 20], 3) << "the value it was asked of stays";
}

TEST(UserDefinedImage, IsTheImageItselfWhileNothingIsParked) {
    Configuration configuration = fresh();
    configuration.sysData[248] = 4;
    configuration.stores.SysBuf_usrdef[246] = 0;
    EXPECT_EQ(userDefinedImage(configuration), configuration.sysData);
}

TEST(SameChannelsAndNumbers, LooksAtEveryChannelAndNumberAndAtNothingElse) {
    const Image one = filledImage();
    for (int layer = 0; layer < 4; ++layer) {
        for (std::size_t offset = 0; offset < 254; ++offset) {
            Image other = one;
            other[inBlock(layer, offset)] ^= 1;
            const bool isLookedAt = offset >= 7 && offset < 167;
            EXPECT_EQ(sameChannelsAndNumbers(one, other), !isLookedAt) << layer << ' ' << offset;
        }
    }
}

}  // namespace
}  // namespace config
