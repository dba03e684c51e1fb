#include "sending/frames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <vector>

namespace sending {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;

using Bytes = std::vector<std::uint8_t>;

Bytes frameWith(std::uint8_t first, std::uint8_t second) {
    Bytes frame(10, 0x55);
    for (const std::uint8_t byte : Bytes{0x1D, 0x03, 0x00, 0x49, first, second, 0x00}) {
        frame.push_back(byte);
    }
    return frame;
}

TEST(Frames, AreTenTimes55TheHeaderTheCommandAndAChecksumThatIs0) {
    EXPECT_THAT(connectFrame, ElementsAreArray(frameWith(0x7F, 0x00)));
    EXPECT_THAT(eraseFrame, ElementsAreArray(frameWith(0x00, 0x70)));
    EXPECT_THAT(writeFrame, ElementsAreArray(frameWith(0x01, 0x00)));
    EXPECT_THAT(resetFrame, ElementsAreArray(frameWith(0x02, 0x00)));
}

TEST(Frames, HaveTheSumOfTheirFirstSixteenBytesForAChecksum) {
    EXPECT_EQ(checksum(std::span(connectFrame).first(16)), 0x3A);
    EXPECT_EQ(checksum(std::span(eraseFrame).first(16)), 0x2B);
    EXPECT_EQ(checksum(std::span(writeFrame).first(16)), 0xBC);
    EXPECT_EQ(checksum(std::span(resetFrame).first(16)), 0xBD);
    EXPECT_EQ(checksum({}), 0);
    EXPECT_EQ(checksum(Bytes(256, 0xFF)), 0);
    EXPECT_EQ(checksum(Bytes(257, 0x01)), 1);
}

TEST(Frames, TheUpdateModeMessageHasEightBytes) {
    EXPECT_THAT(update, ElementsAre(0xF0, 0x1D, 0x03, 0x00, 0x69, 0x55, 0x7F, 0xF7));
}

TEST(NibbleMessage, CarriesEachByteAsItsTwoHalves) {
    EXPECT_THAT(nibbleMessage(0x55), ElementsAre(0x9F, 0x05, 0x05));
    EXPECT_THAT(nibbleMessage(0x1D), ElementsAre(0x9F, 0x01, 0x0D));
    EXPECT_THAT(nibbleMessage(0x00), ElementsAre(0x9F, 0x00, 0x00));
    EXPECT_THAT(nibbleMessage(0xFF), ElementsAre(0x9F, 0x0F, 0x0F));
    for (unsigned byte = 0; byte < 256; ++byte) {
        const NibbleMessage message = nibbleMessage(static_cast<std::uint8_t>(byte));
        EXPECT_EQ(message[0], 0x9F);
        EXPECT_EQ(message[1] * 16U + message[2], byte);
        EXPECT_LT(message[1], 16);
        EXPECT_LT(message[2], 16);
    }
}

TEST(WriteBlock, IsTheFrame512BytesOfTheImageAndTheSumOfAll) {
    ImageBuffer image{};
    std::iota(image.begin(), image.end(), std::uint8_t{3});
    Frame write = writeFrame;
    write[15] = 7;
    const WriteBlock block = writeBlock(write, image, 1000);
    ASSERT_EQ(block.size(), 530U);
    for (std::size_t i = 0; i < 17; ++i) {
        EXPECT_EQ(block.at(i), write.at(i));
    }
    EXPECT_EQ(block[16], 0) << "a block has no checksum where a command has it";
    unsigned sum = 0;
    for (std::size_t i = 0; i < 512; ++i) {
        EXPECT_EQ(block.at(17 + i), image.at(1000 + i));
    }
    for (std::size_t i = 0; i < 529; ++i) {
        sum += block.at(i);
    }
    EXPECT_EQ(block[529], sum % 256);
}

TEST(WriteBlock, TakesItsFrameAsItIs) {
    Frame write = writeFrame;
    write[16] = 0xEE;
    EXPECT_EQ(writeBlock(write, ImageBuffer{}, 0)[16], 0xEE);
}

TEST(WriteBlock, ReadsZerosBeyondTheBuffer) {
    ImageBuffer image{};
    image.fill(0xAB);
    EXPECT_EQ(imageByte(image, 65535), 0xAB);
    EXPECT_EQ(imageByte(image, 65536), 0);
    EXPECT_EQ(imageByte(image, 0xFFFFFFFF), 0);
    EXPECT_EQ(imageByte(image, 0x100000000), 0) << "not the first byte again";
    const WriteBlock across = writeBlock(writeFrame, image, 65536 - 100);
    EXPECT_THAT(std::span(across).subspan(17, 100), Each(0xAB));
    EXPECT_THAT(std::span(across).subspan(117, 412), Each(0));
    const WriteBlock beyond = writeBlock(writeFrame, image, 0xFFFFFE00);
    EXPECT_THAT(std::span(beyond).subspan(17, 512), Each(0));
    EXPECT_EQ(beyond[529], 0xBC);
}

TEST(WriteBlock, HoldsTheBufferOrZerosWhereverItBegins) {
    std::mt19937_64 random(4);
    ImageBuffer image{};
    for (std::uint8_t& byte : image) {
        byte = static_cast<std::uint8_t>(1 + random() % 255);
    }
    for (int round = 0; round < 2000; ++round) {
        const std::uint64_t first = random() >> (random() % 64);
        const WriteBlock block = writeBlock(writeFrame, image, first);
        unsigned sum = 0xBC;
        for (std::uint64_t i = 0; i < 512; ++i) {
            const std::uint64_t index = first + i;
            const bool inside = index >= first && index < 65536;
            const std::uint8_t expected = inside ? image.at(index) : std::uint8_t{0};
            ASSERT_EQ(block.at(17 + i), expected) << first << " + " << i;
            sum += expected;
        }
        ASSERT_EQ(block[529], sum % 256);
    }
}

}  // namespace
}  // namespace sending
