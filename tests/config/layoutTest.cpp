#include "config/layout.h"

#include <gtest/gtest.h>

#include <limits>

#include "config/filledImage.h"

namespace config {
namespace {

TEST(Layout, TheImageHasFourBlocksOf254Bytes) {
    EXPECT_EQ(layerCount, 4);
    EXPECT_EQ(controlCount, 80);
    EXPECT_EQ(buttonCount, 74);
    EXPECT_EQ(blockSize, 254U);
    EXPECT_EQ(imageSize, 1016U);
    EXPECT_EQ(Image{}.size(), 1024U);
}

TEST(Layout, ABlocksPartsStandWhereTheControllerReadsThem) {
    EXPECT_EQ(blockNumberOffset, 6U);
    EXPECT_EQ(channelOffset, 7U);
    EXPECT_EQ(numberOffset, 87U);
    EXPECT_EQ(modeOffset, 167U);
    EXPECT_EQ(curveOffset, 247U);
    EXPECT_EQ(dawModeOffset, 248U);
    EXPECT_EQ(intervalOffset, 249U);
    EXPECT_EQ(lockOffset, 250U);
    EXPECT_EQ(endOffset, 253U);
}

TEST(Layout, TheTrailerIsReadAndWrittenByOffset) {
    for (int layer = 0; layer < 4; ++layer) {
        for (std::size_t offset = 247; offset <= 252; ++offset) {
            const std::size_t position = inBlock(layer, offset);
            EXPECT_EQ(trailer(filledImage(), layer, offset), filling(position));
            expectOneByteChanged(position,
                                 [&](Image& image) { setTrailer(image, layer, offset, 0); });
        }
    }
}

TEST(Layout, ATrailerByteOfEveryLayerIsWrittenFourTimes) {
    for (const std::size_t offset : {248U, 250U}) {
        Image image = filledImage();
        setTrailerOfEveryLayer(image, offset, 5);
        Image expected = filledImage();
        for (std::size_t block = 0; block < 4; ++block) {
            expected[254 * block + offset] = 5;
        }
        EXPECT_EQ(image, expected);
    }
}

TEST(Layout, WritingKeepsTheLowEightBits) {
    Image image{};
    writeByte(image, 10, 0x1FF);
    EXPECT_EQ(readByte(image, 10), 0xFF);
    writeByte(image, 10, -1);
    EXPECT_EQ(readByte(image, 10), 0xFF);
    writeByte(image, 10, 256);
    EXPECT_EQ(readByte(image, 10), 0);
}

TEST(Layout, EveryByteOfTheImageCanBeReadAndWritten) {
    Image image = filledImage();
    for (std::size_t position = 0; position < 1024; ++position) {
        EXPECT_EQ(readByte(image, position), filling(position));
        writeByte(image, position, 0x55);
        EXPECT_EQ(image[position], 0x55);
    }
}

TEST(Layout, BehindTheImageIsZeroAndWritingThereIsDropped) {
    for (const std::size_t position : {std::size_t{1024}, std::size_t{1025}, std::size_t{100000},
                                       std::numeric_limits<std::size_t>::max()}) {
        Image image = filledImage();
        EXPECT_EQ(readByte(image, position), 0);
        writeByte(image, position, 0x55);
        EXPECT_EQ(image, filledImage());
    }
}

TEST(Layout, ThereAreFourLayers) {
    for (int layer = -1; layer <= 256; ++layer) {
        EXPECT_EQ(isLayer(layer), layer == 0 || layer == 1 || layer == 2 || layer == 3) << layer;
    }
}

TEST(Layout, GroupsOfControlsHaveTheirPlaces) {
    EXPECT_EQ(noControl, 127);
    EXPECT_EQ(firstLayerKey, 32);
    EXPECT_EQ(lastLayerKey, 35);
    EXPECT_EQ(firstTransportKey, 36);
    EXPECT_EQ(firstEncoderPush, 40);
    EXPECT_EQ(firstEncoder, 48);
    EXPECT_EQ(firstFader, 56);
    EXPECT_EQ(lastFader, 64);
    EXPECT_EQ(firstPad, 65);
    EXPECT_EQ(lastPad, 73);
    EXPECT_EQ(padCount, 9);
    for (int control = -1; control <= 128; ++control) {
        EXPECT_EQ(isLayerKey(control),
                  control == 32 || control == 33 || control == 34 || control == 35)
            << control;
        EXPECT_EQ(isPad(control), control > 64 && control < 74) << control;
    }
}

}  // namespace
}  // namespace config
