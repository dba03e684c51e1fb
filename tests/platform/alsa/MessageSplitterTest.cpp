#include "platform/alsa/MessageSplitter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace platform::alsa {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

/// What comes out of some bytes, given in one go or in several.
class MessageSplitterTest : public testing::Test {
protected:
    void add(const Bytes& bytes) { splitter.add(bytes, take()); }
    void addPacket(const Bytes& bytes) { splitter.addPacket(bytes, take()); }
    void flush() { splitter.flush(take()); }

    MessageSplitter::Take take() {
        return [this](std::span<const std::uint8_t> message) {
            messages.emplace_back(message.begin(), message.end());
        };
    }

    MessageSplitter splitter;
    std::vector<Bytes> messages;
};

TEST_F(MessageSplitterTest, EachChannelMessageHasTheLengthOfItsKind) {
    add({0x80, 60, 64, 0x9F, 60, 100, 0xA0, 1, 2, 0xB0, 7, 127, 0xC0, 5, 0xD0, 6, 0xE0, 0, 64});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x80, 60, 64}, Bytes{0x9F, 60, 100}, Bytes{0xA0, 1, 2},
                                      Bytes{0xB0, 7, 127}, Bytes{0xC0, 5}, Bytes{0xD0, 6},
                                      Bytes{0xE0, 0, 64}));
}

TEST_F(MessageSplitterTest, ANoteOnWithVelocityZeroStaysOne) {
    add({0x9F, 0x3C, 0x00});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x9F, 0x3C, 0x00}));
}

TEST_F(MessageSplitterTest, EachSystemMessageHasTheLengthOfItsKind) {
    add({0xF1, 1, 0xF2, 1, 2, 0xF3, 3, 0xF6, 0xF8, 0xFA, 0xFB, 0xFC, 0xFE, 0xFF});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF1, 1}, Bytes{0xF2, 1, 2}, Bytes{0xF3, 3},
                                      Bytes{0xF6}, Bytes{0xF8}, Bytes{0xFA}, Bytes{0xFB},
                                      Bytes{0xFC}, Bytes{0xFE}, Bytes{0xFF}));
}

TEST_F(MessageSplitterTest, ASysExIsOneMessage) {
    Bytes block(254, 1);
    block.front() = 0xF0;
    block.back() = 0xF7;
    add(block);
    EXPECT_THAT(messages, ElementsAre(block));
}

TEST_F(MessageSplitterTest, ASysExSpreadOverPacketsIsOneMessage) {
    add({0xF0, 1});
    add({2, 3});
    add({0xF7});
    flush();
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 1, 2, 3, 0xF7}));
}

TEST_F(MessageSplitterTest, ASysExThatIsNotCompleteGoesOutAsFarAsItCameAndGoesOnAfterwards) {
    add({0xF0, 1});
    flush();
    add({2, 0xF7, 0x90, 60, 64});
    flush();
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 1}, Bytes{2, 0xF7}, Bytes{0x90, 60, 64}));
}

TEST_F(MessageSplitterTest, ALongSysExComesInPieces) {
    Bytes sysEx(MessageSplitter::longestPiece + 2, 5);
    sysEx.front() = 0xF0;
    sysEx.back() = 0xF7;
    add(sysEx);
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].size(), MessageSplitter::longestPiece);
    EXPECT_EQ(messages[1], (Bytes{5, 0xF7}));
}

TEST_F(MessageSplitterTest, AMessageInTwoPartsWaitsForTheSecond) {
    add({0x90, 60});
    flush();
    EXPECT_THAT(messages, IsEmpty());
    add({64});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 60, 64}));
}

TEST_F(MessageSplitterTest, RunningStatusIsWrittenOut) {
    add({0x90, 60, 64, 61, 0, 0xC1, 5, 6});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 60, 64}, Bytes{0x90, 61, 0}, Bytes{0xC1, 5},
                                      Bytes{0xC1, 6}));
}

TEST_F(MessageSplitterTest, ASystemMessageEndsRunningStatus) {
    add({0x90, 60, 64, 0xF3, 1, 61, 0});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 60, 64}, Bytes{0xF3, 1}));
}

TEST_F(MessageSplitterTest, RealTimeBytesComeOutWhereTheyStand) {
    add({0x90, 0xF8, 60, 64});
    add({0xF0, 1, 0xFE, 2, 0xF7});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF8}, Bytes{0x90, 60, 64}, Bytes{0xF0, 1}, Bytes{0xFE},
                                      Bytes{2, 0xF7}));
}

TEST_F(MessageSplitterTest, AMessageEndsASysExThatWasBrokenOff) {
    add({0xF0, 1, 2, 0x90, 60, 64});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 1, 2}, Bytes{0x90, 60, 64}));
}

TEST_F(MessageSplitterTest, BytesOfNoMessageAreLeftOut) {
    add({1, 2, 0xF7, 0xF4, 3, 0xF5, 0xF9, 0xFD, 0x90, 60, 0x91, 61, 62});
    flush();
    EXPECT_THAT(messages, ElementsAre(Bytes{0x91, 61, 62}));
}

TEST_F(MessageSplitterTest, ForgetsWhatHasBegun) {
    add({0xF0, 1});
    splitter.reset();
    add({2, 0xF7});
    flush();
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(MessageSplitterTest, APacketFromF0ToF7IsOneMessageWhateverIsBetween) {
    const Bytes odd{0xF0, 1, 0x90, 2, 0xF4, 0xF8, 0xF9, 0xF0, 3, 0xF7, 4, 0xF7};
    addPacket(odd);
    addPacket({0xF0, 0xF7});
    EXPECT_THAT(messages, ElementsAre(odd, Bytes{0xF0, 0xF7}));
}

TEST_F(MessageSplitterTest, AWholePacketEndsWhatHadBegun) {
    addPacket({0x90, 60, 100, 61});
    addPacket({0xF0, 1, 0xF7});
    addPacket({62, 100});
    addPacket({0xF0, 2});
    addPacket({0xF0, 3, 0xF7});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 60, 100}, Bytes{0xF0, 1, 0xF7}, Bytes{0xF0, 2},
                                      Bytes{0xF0, 3, 0xF7}));
}

TEST_F(MessageSplitterTest, APacketThatIsNotWholeIsTakenAsAStream) {
    addPacket({0xF0, 1, 0xF8, 2});
    addPacket({3, 0xF7});
    addPacket({0xF0, 4, 0x90, 60, 100});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 1}, Bytes{0xF8}, Bytes{2, 3, 0xF7},
                                      Bytes{0xF0, 4}, Bytes{0x90, 60, 100}));
}

}  // namespace
}  // namespace platform::alsa
