#include "simulator/SimulatedController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "simulator/messages.h"

namespace simulator {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Eq;
using testing::Field;
using testing::IsEmpty;

/// The one refusal that the bytes bring about.
std::string refusalOf(const Bytes& bytes) {
    SimulatedController tormelk;
    tormelk.receive(bytes);
    EXPECT_EQ(tormelk.log().size(), 1U);
    if (tormelk.log().empty()) {
        return "nothing";
    }
    EXPECT_FALSE(tormelk.log().front().accepted);
    EXPECT_THAT(tormelk.layers(), Each(Eq(std::nullopt)));
    return tormelk.log().front().text;
}

std::vector<std::string> textsOf(const SimulatedController& tormelk) {
    std::vector<std::string> texts;
    for (const LogEntry& entry : tormelk.log()) {
        texts.push_back(entry.text);
    }
    return texts;
}

void expectLayer(const SimulatedController& tormelk, int block) {
    const auto& layer = tormelk.layers().at(static_cast<std::size_t>(block) - 1);
    ASSERT_TRUE(layer.has_value()) << "block " << block;
    EXPECT_THAT(*layer, ElementsAreArray(configurationMessage(block)));
}

TEST(SimulatedController, HoldsNothingAtFirst) {
    const SimulatedController tormelk;
    EXPECT_THAT(tormelk.layers(), Each(Eq(std::nullopt)));
    EXPECT_THAT(tormelk.log(), IsEmpty());
}

TEST(SimulatedController, KeepsEachBlockAsItsLayer) {
    SimulatedController tormelk;
    for (int block = 1; block <= 4; ++block) {
        tormelk.receive(configurationMessage(block));
        for (int other = 1; other <= 4; ++other) {
            EXPECT_EQ(tormelk.layers().at(static_cast<std::size_t>(other) - 1).has_value(),
                      other <= block);
        }
        expectLayer(tormelk, block);
    }
    EXPECT_THAT(tormelk.log(), ElementsAre(LogEntry{1, true, "Layer 1 taken in", 254},
                                           LogEntry{2, true, "Layer 2 taken in", 254},
                                           LogEntry{3, true, "Layer 3 taken in", 254},
                                           LogEntry{4, true, "Layer 4 taken in", 254}));
}

TEST(SimulatedController, ALaterBlockReplacesTheEarlierOne) {
    SimulatedController tormelk;
    tormelk.receive(configurationMessage(2));
    Bytes later = configurationMessage(2);
    later[100] = 0x55;
    tormelk.receive(later);
    EXPECT_THAT(*tormelk.layers()[1], ElementsAreArray(later));
}

TEST(SimulatedController, TakesAMessageInPiecesOfAnySize) {
    const Bytes message = configurationMessage(3);
    for (std::size_t piece = 1; piece <= message.size(); ++piece) {
        SimulatedController tormelk;
        for (std::size_t first = 0; first < message.size(); first += piece) {
            EXPECT_FALSE(tormelk.layers()[2].has_value());
            tormelk.receive(
                std::span(message).subspan(first, std::min(piece, message.size() - first)));
        }
        expectLayer(tormelk, 3);
        EXPECT_EQ(tormelk.log().size(), 1U);
    }
}

TEST(SimulatedController, TakesSeveralMessagesInOneGo) {
    SimulatedController tormelk;
    tormelk.receive(configurationMessage(4) + configurationMessage(1) + configurationMessage(2));
    EXPECT_THAT(textsOf(tormelk),
                ElementsAre("Layer 4 taken in", "Layer 1 taken in", "Layer 2 taken in"));
    expectLayer(tormelk, 1);
    expectLayer(tormelk, 2);
    expectLayer(tormelk, 4);
    EXPECT_FALSE(tormelk.layers()[2].has_value());
}

TEST(SimulatedController, PassesOverRealTimeBytesInsideAMessage) {
    for (int realTime = 0xF8; realTime <= 0xFF; ++realTime) {
        SimulatedController tormelk;
        Bytes message = configurationMessage(1);
        for (const std::ptrdiff_t place : {253, 90, 6, 1}) {
            message.insert(message.begin() + place, static_cast<std::uint8_t>(realTime));
        }
        tormelk.receive(message);
        expectLayer(tormelk, 1);
        EXPECT_EQ(tormelk.log().size(), 1U);
    }
}

TEST(SimulatedController, TakesEveryByteBelow0x80AsContent) {
    for (const std::uint8_t content : Bytes{0x00, 0x01, 0x7F}) {
        SimulatedController tormelk;
        Bytes message = configurationMessage(1);
        std::fill(message.begin() + 7, message.end() - 1, content);
        tormelk.receive(message);
        ASSERT_TRUE(tormelk.layers()[0].has_value());
        EXPECT_THAT(*tormelk.layers()[0], ElementsAreArray(message));
    }
}

TEST(SimulatedController, RefusesAMessageOfAnotherLength) {
    EXPECT_EQ(refusalOf(sysExOf(253)), "Message of 253 bytes: a configuration message has 254");
    EXPECT_EQ(refusalOf(sysExOf(255)), "Message of 255 bytes: a configuration message has 254");
    EXPECT_EQ(refusalOf(sysExOf(2)), "Message of 2 bytes: a configuration message has 254");
    EXPECT_EQ(refusalOf(sysExOf(5)), "Message of 5 bytes: a configuration message has 254");
    EXPECT_EQ(refusalOf(sysExOf(4096)), "Message of 4096 bytes: a configuration message has 254");
}

TEST(SimulatedController, RefusesEveryOtherLengthUpToAThousand) {
    for (std::size_t size = 7; size <= 1000; ++size) {
        SimulatedController tormelk;
        tormelk.receive(sysExOf(size));
        ASSERT_EQ(tormelk.log().size(), 1U) << size;
        EXPECT_EQ(tormelk.log().front().accepted, size == 254) << size;
        EXPECT_EQ(tormelk.log().front().bytes, size);
    }
}

TEST(SimulatedController, RefusesAnotherHeader) {
    for (std::size_t place = 1; place <= 5; ++place) {
        Bytes message = configurationMessage(1);
        message[place] ^= 0x01;
        EXPECT_THAT(refusalOf(message), testing::EndsWith(": a configuration message begins "
                                                          "F0 1D 03 00 69 4E"))
            << place;
    }
    EXPECT_EQ(refusalOf({0xF0, 0x41, 0x10, 0x42, 0x12, 0x40, 0x00, 0xF7}),
              "Message begins F0 41 10 42 12 40: a configuration message begins "
              "F0 1D 03 00 69 4E");
    EXPECT_EQ(refusalOf({0xF0, 0x7E, 0xF7}),
              "Message begins F0 7E: a configuration message begins F0 1D 03 00 69 4E");
}

TEST(SimulatedController, RefusesTheEditorsSecondMessageForm) {
    EXPECT_EQ(refusalOf({0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67, 0x67, 0x67, 0x67,
                         0x00, 0x67, 0xF7}),
              "Message begins F0 1D 03 00 65 4E: a configuration message begins "
              "F0 1D 03 00 69 4E");
}

TEST(SimulatedController, TakesOnlyBlockNumbers1To4) {
    for (int block = 0; block < 0x80; ++block) {
        SimulatedController tormelk;
        tormelk.receive(configurationMessage(block));
        ASSERT_EQ(tormelk.log().size(), 1U);
        EXPECT_EQ(tormelk.log().front().accepted, block >= 1 && block <= 4) << block;
    }
    EXPECT_EQ(refusalOf(configurationMessage(0)), "Block number 0: the blocks are 1 to 4");
    EXPECT_EQ(refusalOf(configurationMessage(5)), "Block number 5: the blocks are 1 to 4");
    EXPECT_EQ(refusalOf(configurationMessage(127)), "Block number 127: the blocks are 1 to 4");
}

TEST(SimulatedController, RefusesAMessageWithAByteOf0x80OrMoreAtAnyPlace) {
    for (std::size_t place = 1; place <= 252; ++place) {
        SimulatedController tormelk;
        Bytes message = configurationMessage(1);
        message[place] = 0x85;
        tormelk.receive(message);
        EXPECT_THAT(tormelk.layers(), Each(Eq(std::nullopt))) << place;
        EXPECT_THAT(tormelk.log(), Each(Field(&LogEntry::accepted, false)));
        ASSERT_FALSE(tormelk.log().empty());
        EXPECT_EQ(tormelk.log().front().text, "Byte " + std::to_string(place) +
                                                  " is 0x85: inside a SysEx every byte is "
                                                  "below 0x80");
    }
}

TEST(SimulatedController, TakesTheNextMessageAfterADamagedOne) {
    for (const std::uint8_t damage : Bytes{0x80, 0xC0, 0xEF, 0xF0, 0xF1, 0xF2, 0xF6, 0xF7}) {
        for (const std::size_t place : {1U, 6U, 90U, 252U}) {
            SimulatedController tormelk;
            Bytes message = configurationMessage(1);
            message[place] = damage;
            tormelk.receive(message + configurationMessage(2));
            EXPECT_FALSE(tormelk.layers()[0].has_value());
            expectLayer(tormelk, 2);
        }
    }
}

TEST(SimulatedController, RefusesAMessageThatIsBrokenOffAndTakesTheOneThatBreaksIt) {
    SimulatedController tormelk;
    Bytes half = configurationMessage(1);
    half.resize(100);
    tormelk.receive(half);
    tormelk.receive(configurationMessage(2));
    EXPECT_THAT(textsOf(tormelk),
                ElementsAre("Byte 100 is 0xF0: a new SysEx begins before this one has ended",
                            "Layer 2 taken in"));
    EXPECT_EQ(tormelk.log().front().bytes, 100U);
    EXPECT_FALSE(tormelk.layers()[0].has_value());
    expectLayer(tormelk, 2);
}

TEST(SimulatedController, RefusesChannelAndSystemMessagesByName) {
    EXPECT_EQ(refusalOf({0x80, 0x3C, 0x40}), "Note off (80 3C 40) is no configuration message");
    EXPECT_EQ(refusalOf({0x99, 0x3C, 0x40}), "Note on (99 3C 40) is no configuration message");
    EXPECT_EQ(refusalOf({0xA0, 0x3C, 0x40}), "Key pressure (A0 3C 40) is no configuration message");
    EXPECT_EQ(refusalOf({0xB0, 0x10, 0x7F}),
              "Control change (B0 10 7F) is no configuration message");
    EXPECT_EQ(refusalOf({0xC0, 0x05}), "Program change (C0 05) is no configuration message");
    EXPECT_EQ(refusalOf({0xD0, 0x05}), "Channel pressure (D0 05) is no configuration message");
    EXPECT_EQ(refusalOf({0xE8, 0x00, 0x40}), "Pitch bend (E8 00 40) is no configuration message");
    EXPECT_EQ(refusalOf({0xF2, 0x00, 0x40}),
              "System message (F2 00 40) is no configuration message");
}

TEST(SimulatedController, RefusesStrayBytes) {
    EXPECT_EQ(refusalOf({0x12, 0x34}), "Byte 0x12 stands outside any message");
    EXPECT_EQ(refusalOf({0xF7}), "Byte 0xF7 ends a SysEx that has not begun");
}

TEST(SimulatedController, ARefusedMessageLeavesTheLayersAsTheyWere) {
    SimulatedController tormelk;
    for (int block = 1; block <= 4; ++block) {
        tormelk.receive(configurationMessage(block));
    }
    tormelk.receive(sysExOf(253));
    tormelk.receive(configurationMessage(5));
    tormelk.receive(Bytes{0x90, 0x3C, 0x40});
    for (int block = 1; block <= 4; ++block) {
        expectLayer(tormelk, block);
    }
}

TEST(SimulatedController, TellsOnceForEachReceiveThatChangedSomething) {
    SimulatedController tormelk;
    std::vector<std::size_t> entriesSeen;
    tormelk.onChange = [&] { entriesSeen.push_back(tormelk.log().size()); };
    tormelk.receive({});
    tormelk.receive(Bytes{0xFE});
    Bytes half = configurationMessage(1);
    half.resize(100);
    tormelk.receive(half);
    EXPECT_THAT(entriesSeen, IsEmpty());
    tormelk.receive(configurationMessage(1) + configurationMessage(2));
    EXPECT_THAT(entriesSeen, ElementsAre(3U));
    tormelk.receive(Bytes{0x90, 0x3C, 0x40});
    EXPECT_THAT(entriesSeen, ElementsAre(3U, 4U));
}

TEST(SimulatedController, TellsAlsoWhenTheLogIsFull) {
    SimulatedController tormelk;
    for (std::size_t i = 0; i < SimulatedController::longestLog; ++i) {
        tormelk.receive(Bytes{0xF6});
    }
    int told = 0;
    tormelk.onChange = [&] { ++told; };
    tormelk.receive(Bytes{0xF6});
    EXPECT_EQ(told, 1);
}

TEST(SimulatedController, MayReceiveMoreWhileItTells) {
    SimulatedController tormelk;
    int told = 0;
    tormelk.onChange = [&] {
        if (++told < 4) {
            tormelk.receive(configurationMessage(told + 1));
        }
    };
    tormelk.receive(configurationMessage(1));
    EXPECT_EQ(told, 4);
    for (int block = 1; block <= 4; ++block) {
        expectLayer(tormelk, block);
    }
}

TEST(SimulatedController, KeepsTheNewestEntriesAndCountsThemAll) {
    SimulatedController tormelk;
    const std::size_t entries = SimulatedController::longestLog + 10;
    for (std::size_t i = 0; i < entries; ++i) {
        tormelk.receive(Bytes{0xF6});
    }
    ASSERT_EQ(tormelk.log().size(), SimulatedController::longestLog);
    EXPECT_EQ(tormelk.log().front().number, 11U);
    EXPECT_EQ(tormelk.log().back().number, entries);
}

}  // namespace
}  // namespace simulator
