#include "config/sysex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "config/buildImageAndStores.h"
#include "config/control.h"

namespace config {
namespace {

TEST(SysEx, ABlockIsALayersBytesUnchanged) {
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

TEST(SysEx, TheBlocksOfAFreshImageAreCompleteMessages) {
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

TEST(SysEx, ABlockShowsTheImageAsItIsNow) {
    Image sysData{};
    const auto block = layerBlock(sysData, 2);
    setNumber(sysData, 2, 0, 0x42);
    EXPECT_EQ(block[87], 0x42);
}

TEST(SysEx, TheSecondFormOfMessageHasExactlyTheseBytes) {
    EXPECT_THAT(secondMessageForm,
                testing::ElementsAre(0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67, 0x67,
                                     0x67, 0x67, 0x00, 0x67, 0xF7));
}

using Message = std::vector<std::uint8_t>;

/// A layer's message (0 to 3) of a fresh image.
Message messageOf(int layer) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    const auto block = layerBlock(sysData, layer);
    return {block.begin(), block.end()};
}

std::string objectionTo(const Message& message) {
    const MessageReading reading = readMessage(message);
    EXPECT_NE(reading.layer.has_value(), !reading.objection.empty());
    return reading.objection;
}

TEST(ReadingAMessage, TellsTheLayer) {
    for (int layer = 0; layer < 4; ++layer) {
        const MessageReading reading = readMessage(messageOf(layer));
        EXPECT_EQ(reading.layer, layer);
        EXPECT_EQ(reading.objection, "");
    }
}

TEST(ReadingAMessage, TakesEveryByteBelow0x80) {
    Message message(254, 0x7F);
    const Message header = {0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, 0x03};
    std::copy(header.begin(), header.end(), message.begin());
    message.back() = 0xF7;
    EXPECT_EQ(readMessage(message).layer, 2);
}

TEST(ReadingAMessage, RefusesAnotherDevices) {
    for (std::size_t place = 0; place < 6; ++place) {
        Message message = messageOf(0);
        message[place] ^= 0x01U;
        EXPECT_THAT(objectionTo(message),
                    testing::EndsWith(": a configuration message begins F0 1D 03 00 69 4E"))
            << place;
    }
    EXPECT_EQ(objectionTo({0xF0, 0x41, 0x10, 0x42, 0x12, 0x40, 0x00, 0xF7}),
              "Message begins F0 41 10 42 12 40: a configuration message begins F0 1D 03 00 69 4E");
    EXPECT_EQ(objectionTo({0xF0, 0x7E, 0xF7}),
              "Message begins F0 7E: a configuration message begins F0 1D 03 00 69 4E");
    EXPECT_EQ(objectionTo({0x90, 0x3C, 0x40}),
              "Message begins 90 3C 40: a configuration message begins F0 1D 03 00 69 4E");
}

TEST(ReadingAMessage, RefusesOneThatIsCutShortAnywhere) {
    const Message whole = messageOf(1);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto end = whole.begin() + static_cast<std::ptrdiff_t>(size);
        EXPECT_EQ(objectionTo(Message(whole.begin(), end)),
                  "Message of " + std::to_string(size) + " bytes: a configuration message has 254");
    }
    EXPECT_EQ(objectionTo({0xF0, 0x1D, 0xF7}),
              "Message of 3 bytes: a configuration message has 254");
}

TEST(ReadingAMessage, RefusesOneThatGoesOn) {
    Message message = messageOf(1);
    message.push_back(0xF7);
    EXPECT_EQ(objectionTo(message), "Message of 255 bytes: a configuration message has 254");
}

TEST(ReadingAMessage, RefusesAByteAbove7FInside) {
    for (std::size_t place = 6; place < 253; ++place) {
        for (const int byte : {0x80, 0xF0, 0xF7, 0xFF}) {
            Message message = messageOf(2);
            message[place] = static_cast<std::uint8_t>(byte);
            EXPECT_THAT(objectionTo(message),
                        testing::StartsWith("Byte " + std::to_string(place) + " is 0x"));
        }
    }
    Message message = messageOf(2);
    message[93] = 0x90;
    message[200] = 0x91;
    EXPECT_EQ(objectionTo(message), "Byte 93 is 0x90: inside a SysEx every byte is below 0x80");
}

TEST(ReadingAMessage, RefusesOneWithoutItsEndMark) {
    for (const int byte : {0x00, 0x7F, 0xF0, 0xF6}) {
        Message message = messageOf(3);
        message.back() = static_cast<std::uint8_t>(byte);
        EXPECT_THAT(objectionTo(message), testing::EndsWith(": a SysEx ends with 0xF7"));
    }
}

TEST(ReadingAMessage, RefusesABlockThatIsNone) {
    for (const int block : {0, 5, 127}) {
        Message message = messageOf(0);
        message[6] = static_cast<std::uint8_t>(block);
        EXPECT_EQ(objectionTo(message),
                  "Block number " + std::to_string(block) + ": the blocks are 1 to 4");
    }
}

TEST(HeaderOfAMessage, IsItsFirstSixBytesWithoutTheEndMark) {
    const auto header = [](const Message& message) {
        const auto bytes = headerOf(message);
        return Message(bytes.begin(), bytes.end());
    };
    EXPECT_EQ(header({}), Message{});
    EXPECT_EQ(header({0xF7}), Message{});
    EXPECT_EQ(header({0xF0, 1, 2, 3, 4, 0xF7}), (Message{0xF0, 1, 2, 3, 4}));
    EXPECT_EQ(header({0xF0, 1, 2, 3, 4, 5, 0xF7}), (Message{0xF0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(header({0xF0, 1, 2, 3, 4, 5, 6, 0xF7}), (Message{0xF0, 1, 2, 3, 4, 5}));
}

TEST(Sysex, ABlockIsOneMessageAsLongAsItsFrameAndItsDataAreThoseOfOne) {
    Image sysData{};
    Stores stores;
    buildImageAndStores(sysData, stores);
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_TRUE(isOneMessage(sysData, layer));
        for (std::size_t offset = 0; offset < blockSize; ++offset) {
            Image changed = sysData;
            changed[at(layer, offset)] = 0x80;
            EXPECT_FALSE(isOneMessage(changed, layer)) << offset;
            const bool isFrame = offset < channelOffset || offset == endOffset;
            changed[at(layer, offset)] = 0x7F;
            EXPECT_EQ(isOneMessage(changed, layer), !isFrame) << offset;
            EXPECT_TRUE(isOneMessage(changed, (layer + 1) % 4)) << "which is not touched";
        }
    }
}

}  // namespace
}  // namespace config
