#include "config/layout.h"

#include <gtest/gtest.h>

#include <limits>

namespace config {
namespace {

/// Differs between any two positions less than 251 apart, and is never 0.
std::uint8_t filling(std::size_t position) {
    return static_cast<std::uint8_t>(1 + position % 251);
}

/// The position of a byte of a block in the image.
std::size_t inBlock(int layer, std::size_t offset) {
    return static_cast<std::size_t>(layer) * 254 + offset;
}

Image filledImage() {
    Image image{};
    for (std::size_t i = 0; i < image.size(); ++i) {
        image[i] = filling(i);
    }
    return image;
}

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

TEST(Layout, EveryControlOfEveryLayerHasThreeBytes) {
    const Image image = filledImage();
    for (int layer = 0; layer < 4; ++layer) {
        for (int control = 0; control < 80; ++control) {
            const auto i = static_cast<std::size_t>(control);
            const std::size_t channelPosition = inBlock(layer, 7 + i);
            const std::size_t numberPosition = inBlock(layer, 87 + i);
            const std::size_t modePosition = inBlock(layer, 167 + i);
            EXPECT_EQ(channelAt(layer, control), channelPosition);
            EXPECT_EQ(numberAt(layer, control), numberPosition);
            EXPECT_EQ(modeAt(layer, control), modePosition);
            EXPECT_EQ(channel(image, layer, control), filling(channelPosition));
            EXPECT_EQ(number(image, layer, control), filling(numberPosition));
            EXPECT_EQ(mode(image, layer, control), filling(modePosition));
        }
    }
}

/// That `write` changed exactly the byte at `position`, into 0.
template <typename Write>
void expectOneByteChanged(std::size_t position, Write write) {
    Image image = filledImage();
    write(image);
    Image expected = filledImage();
    expected[position] = 0;
    EXPECT_EQ(image, expected) << "byte " << position;
}

TEST(Layout, WritingAControlsByteTouchesNoOther) {
    for (int layer = 0; layer < 4; ++layer) {
        for (int control = 0; control < 80; ++control) {
            const auto i = static_cast<std::size_t>(control);
            expectOneByteChanged(inBlock(layer, 7 + i),
                                 [&](Image& image) { setChannel(image, layer, control, 0); });
            expectOneByteChanged(inBlock(layer, 87 + i),
                                 [&](Image& image) { setNumber(image, layer, control, 0); });
            expectOneByteChanged(inBlock(layer, 167 + i),
                                 [&](Image& image) { setMode(image, layer, control, 0); });
        }
    }
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
    setNumber(image, 3, 79, 0x181);
    EXPECT_EQ(number(image, 3, 79), 0x81);
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

TEST(Layout, NoControlIsTheControl127) {
    EXPECT_EQ(noControl, 127);
    const Image image = filledImage();
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_EQ(channel(image, layer, 127), filling(inBlock(layer, 7 + 127)));
        EXPECT_EQ(number(image, layer, 127), filling(inBlock(layer, 87 + 127)));
    }
    EXPECT_EQ(mode(image, 2, 127), filling(508 + 167 + 127));
    EXPECT_EQ(mode(image, 3, 127), 0) << "byte 1056 is behind the image";
    Image written = image;
    setMode(written, 3, 127, 0x09);
    EXPECT_EQ(written, image);
}

TEST(Layout, NoLayerReachesNothing) {
    Image image = filledImage();
    for (const int layer : {4 * 254, 255, 5}) {
        EXPECT_EQ(channel(image, layer, 0), 0);
        EXPECT_EQ(number(image, layer, 79), 0);
        EXPECT_EQ(mode(image, layer, 127), 0);
        EXPECT_EQ(trailer(image, layer, 247), 0);
        setChannel(image, layer, 0, 1);
        setNumber(image, layer, 79, 1);
        setMode(image, layer, 127, 1);
        setTrailer(image, layer, 247, 1);
    }
    EXPECT_EQ(image, filledImage());
}

TEST(Layout, NegativeLayersAndControlsReachNothingOutside) {
    Image image = filledImage();
    EXPECT_EQ(channel(image, -1, 0), 0);
    EXPECT_EQ(mode(image, std::numeric_limits<int>::min(), 0), 0);
    EXPECT_EQ(channel(image, 0, -8), 0);
    EXPECT_EQ(number(image, std::numeric_limits<int>::max(), 0), 0);
    setChannel(image, -1, 0, 0x55);
    setChannel(image, 0, -8, 0x55);
    EXPECT_EQ(image, filledImage());
}

TEST(Layout, GroupsOfControlsHaveTheirPlaces) {
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
