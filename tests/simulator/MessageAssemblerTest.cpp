#include "simulator/MessageAssembler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "simulator/messages.h"

namespace simulator {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class MessageAssemblerTest : public testing::Test, protected MessageAssembler::Sink {
protected:
    void add(const Bytes& bytes) {
        for (const std::uint8_t byte : bytes) {
            assembler_.add(byte);
        }
    }

    std::vector<Bytes> messages;
    std::vector<std::pair<std::string, std::size_t>> refusals;

private:
    void take(std::span<const std::uint8_t> message) override {
        messages.emplace_back(message.begin(), message.end());
    }
    void refuse(std::string reason, std::size_t bytes) override {
        refusals.emplace_back(std::move(reason), bytes);
    }

    MessageAssembler assembler_{*this};
};

TEST_F(MessageAssemblerTest, AMessageIsCompleteWithItsLastByteAndNotBefore) {
    const std::vector<Bytes> all = {
        {0x80, 0x40, 0x00},
        {0x9F, 0x7F, 0x7F},
        {0xA0, 0x01, 0x02},
        {0xB3, 0x10, 0x40},
        {0xC5, 0x20},
        {0xD0, 0x7F},
        {0xE1, 0x00, 0x40},
        {0xF0, 0x7D, 0x01, 0xF7},
        {0xF1, 0x35},
        {0xF2, 0x01, 0x02},
        {0xF3, 0x04},
        {0xF6},
        {0xF4},
        {0xF5},
        {0xF0, 0xF7},
    };
    for (const Bytes& message : all) {
        messages.clear();
        for (const std::uint8_t byte : message) {
            EXPECT_THAT(messages, IsEmpty());
            add({byte});
        }
        EXPECT_THAT(messages, ElementsAre(message));
    }
    EXPECT_THAT(refusals, IsEmpty());
}

TEST_F(MessageAssemblerTest, OneRunOfBytesMayHoldSeveralMessages) {
    add({0x90, 0x3C, 0x40, 0xF0, 0x01, 0xF7, 0xF0, 0x02, 0xF7, 0xC0, 0x05});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 0x3C, 0x40}, Bytes{0xF0, 0x01, 0xF7},
                                      Bytes{0xF0, 0x02, 0xF7}, Bytes{0xC0, 0x05}));
    EXPECT_THAT(refusals, IsEmpty());
}

TEST_F(MessageAssemblerTest, RealTimeBytesArePassedOverAnywhere) {
    for (int realTime = 0xF8; realTime <= 0xFF; ++realTime) {
        const auto byte = static_cast<std::uint8_t>(realTime);
        messages.clear();
        add({byte, 0xF0, byte, 0x01, byte, byte, 0x02, byte, 0xF7, byte});
        add({0x90, byte, 0x3C, byte, 0x40, byte});
        EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 0x01, 0x02, 0xF7}, Bytes{0x90, 0x3C, 0x40}))
            << realTime;
    }
    EXPECT_THAT(refusals, IsEmpty());
}

TEST_F(MessageAssemblerTest, AChannelStatusHoldsForTheMessagesThatFollow) {
    add({0x91, 0x3C, 0x40, 0x3D, 0x41, 0xF8, 0x3E, 0x42, 0xC0, 0x01, 0x02});
    EXPECT_THAT(messages,
                ElementsAre(Bytes{0x91, 0x3C, 0x40}, Bytes{0x91, 0x3D, 0x41},
                            Bytes{0x91, 0x3E, 0x42}, Bytes{0xC0, 0x01}, Bytes{0xC0, 0x02}));
    EXPECT_THAT(refusals, IsEmpty());
}

TEST_F(MessageAssemblerTest, ASystemMessageEndsTheHoldOfAChannelStatus) {
    for (const Bytes& system : {Bytes{0xF0, 0xF7}, Bytes{0xF6}, Bytes{0xF3, 0x01}}) {
        messages.clear();
        refusals.clear();
        add({0x90, 0x3C, 0x40});
        add(system);
        add({0x3D, 0x41});
        EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 0x3C, 0x40}, system));
        EXPECT_THAT(refusals, ElementsAre(Pair("Byte 0x3D stands outside any message", 1U)));
    }
}

TEST_F(MessageAssemblerTest, DataOutsideAnyMessageIsRefusedOnceForEachRun) {
    add({0x01, 0x02, 0x03, 0xF6, 0x7F, 0x00});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF6}));
    EXPECT_THAT(refusals, ElementsAre(Pair("Byte 0x01 stands outside any message", 1U),
                                      Pair("Byte 0x7F stands outside any message", 1U)));
}

TEST_F(MessageAssemblerTest, AnEndWithoutABeginningIsRefused) {
    add({0xF7, 0x90, 0x3C, 0x40, 0xF7});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 0x3C, 0x40}));
    EXPECT_THAT(refusals, ElementsAre(Pair("Byte 0xF7 ends a SysEx that has not begun", 1U),
                                      Pair("Byte 0xF7 ends a SysEx that has not begun", 1U)));
}

TEST_F(MessageAssemblerTest, AnInterruptedChannelMessageIsRefused) {
    add({0x90, 0x3C, 0xB0, 0x10, 0x40});
    add({0x90, 0x3C, 0xF7});
    add({0x90, 0xF0, 0x01, 0xF7});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xB0, 0x10, 0x40}, Bytes{0xF0, 0x01, 0xF7}));
    EXPECT_THAT(refusals, ElementsAre(Pair("Byte 2 is 0xB0: the message was not complete", 2U),
                                      Pair("Byte 2 is 0xF7: the message was not complete", 2U),
                                      Pair("Byte 1 is 0xF0: the message was not complete", 1U)));
}

TEST_F(MessageAssemblerTest, ASysExBrokenOffByAnotherIsRefusedAndTheOtherTaken) {
    add({0xF0, 0x01, 0x02, 0xF0, 0x03, 0xF7});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 0x03, 0xF7}));
    EXPECT_THAT(refusals, ElementsAre(Pair(
                              "Byte 3 is 0xF0: a new SysEx begins before this one has ended", 3U)));
}

TEST_F(MessageAssemblerTest, AStatusByteInsideASysExBreaksItOff) {
    for (int status = 0x80; status <= 0xF6; ++status) {
        if (status == 0xF0) {
            continue;
        }
        refusals.clear();
        add({0xF0, 0x01, static_cast<std::uint8_t>(status)});
        ASSERT_EQ(refusals.size(), 1U) << status;
        EXPECT_THAT(refusals[0].first,
                    testing::MatchesRegex(
                        "Byte 2 is 0x[0-9A-F]{2}: inside a SysEx every byte is below 0x80"))
            << status;
        EXPECT_EQ(refusals[0].second, 2U);
        add({0xF0, 0xF7});
    }
}

TEST_F(MessageAssemblerTest, TheRestOfABrokenSysExIsNotRefusedOnceMore) {
    add({0xF0, 0x01, 0x85, 0x02, 0x03, 0x04, 0x05, 0x06, 0xF7, 0xF0, 0x07, 0xF7});
    // What the status byte itself begins is a message; the rest is no row of more of them.
    EXPECT_THAT(messages, ElementsAre(Bytes{0x85, 0x02, 0x03}, Bytes{0xF0, 0x07, 0xF7}));
    EXPECT_EQ(refusals.size(), 1U);
}

TEST_F(MessageAssemblerTest, AfterTheRestOfABrokenSysExEverythingIsAsBefore) {
    add({0xF0, 0x01, 0x85, 0x02, 0x03, 0xF7});
    messages.clear();
    refusals.clear();
    add({0x90, 0x01, 0x02, 0x03, 0x04, 0xF7, 0x05});
    EXPECT_THAT(messages, ElementsAre(Bytes{0x90, 0x01, 0x02}, Bytes{0x90, 0x03, 0x04}));
    EXPECT_THAT(refusals, ElementsAre(Pair("Byte 0xF7 ends a SysEx that has not begun", 1U),
                                      Pair("Byte 0x05 stands outside any message", 1U)));
}

TEST_F(MessageAssemblerTest, ASysExThatNeverEndsIsRefusedOnceAtTheLimit) {
    add(Bytes{0xF0} + Bytes(MessageAssembler::longestMessage - 2, 0x11));
    EXPECT_THAT(refusals, IsEmpty());
    add(Bytes(100000, 0x11));
    EXPECT_THAT(refusals, ElementsAre(Pair("SysEx without an end after 4096 bytes", 4096U)));
    add({0xF7, 0xF0, 0x01, 0xF7});
    EXPECT_THAT(messages, ElementsAre(Bytes{0xF0, 0x01, 0xF7}));
    EXPECT_EQ(refusals.size(), 1U);
}

TEST_F(MessageAssemblerTest, TheLongestSysExIsStillTaken) {
    const Bytes message = sysExOf(MessageAssembler::longestMessage);
    add(message);
    EXPECT_THAT(messages, ElementsAre(message));
    EXPECT_THAT(refusals, IsEmpty());
}

}  // namespace
}  // namespace simulator
