#include "config/control.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "config/filledImage.h"

namespace config {
namespace {

TEST(Control, OfEveryLayerHasThreeBytes) {
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

TEST(Control, WritingOneOfItsBytesTouchesNoOther) {
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

TEST(Control, None127ReachesTheBytesThatFollow) {
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

TEST(Control, NoLayerReachesNothing) {
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

TEST(Control, NegativeLayersAndControlsReachNothingOutside) {
    Image image = filledImage();
    EXPECT_EQ(channel(image, -1, 0), 0);
    EXPECT_EQ(mode(image, std::numeric_limits<int>::min(), 0), 0);
    EXPECT_EQ(channel(image, 0, -8), 0);
    EXPECT_EQ(number(image, std::numeric_limits<int>::max(), 0), 0);
    setChannel(image, -1, 0, 0x55);
    setChannel(image, 0, -8, 0x55);
    EXPECT_EQ(image, filledImage());
}

TEST(Control, OnlyTheLowEightBitsAreWritten) {
    Image image{};
    setNumber(image, 3, 79, 0x181);
    EXPECT_EQ(number(image, 3, 79), 0x81);
}

constexpr auto note = MessageKind::Note;
constexpr auto cc = MessageKind::ControlChange;
constexpr auto program = MessageKind::ProgramChange;
constexpr auto bend = MessageKind::PitchBend;
constexpr auto none = MessageKind::Unknown;

/// What each way of reading makes of a mode byte with these low four bits.
struct Reading {
    int lowBits;
    MessageKind sent;
    MessageKind shown;
    MessageKind afterLoad;
    MessageKind behindBlank;
};

// clang-format off
constexpr std::array<Reading, 16> readings = {{
    {0x0, none,    none,    note,    note},
    {0x1, none,    none,    note,    note},
    {0x2, none,    none,    note,    cc},
    {0x3, none,    none,    note,    cc},
    {0x4, none,    none,    note,    program},
    {0x5, none,    none,    note,    program},
    {0x6, none,    none,    note,    cc},
    {0x7, none,    none,    note,    cc},
    {0x8, none,    none,    note,    note},
    {0x9, note,    note,    note,    note},
    {0xA, none,    none,    note,    cc},
    {0xB, cc,      cc,      cc,      cc},
    {0xC, program, program, program, program},
    {0xD, none,    none,    note,    program},
    {0xE, bend,    cc,      note,    cc},
    {0xF, none,    none,    note,    cc},
}};
// clang-format on

TEST(ModeByte, IsReadByItsLowFourBitsInFourWays) {
    for (int byte = 0; byte < 256; ++byte) {
        const Reading& expected = readings.at(static_cast<std::size_t>(byte % 16));
        ASSERT_EQ(expected.lowBits, byte % 16);
        EXPECT_EQ(sentKind(byte), expected.sent) << byte;
        EXPECT_EQ(shownKind(byte), expected.shown) << byte;
        EXPECT_EQ(kindAfterLoad(byte), expected.afterLoad) << byte;
        EXPECT_EQ(kindBehindBlank(byte), expected.behindBlank) << byte;
    }
}

TEST(ModeByte, TogglesWhereBit6IsSet) {
    for (int byte = 0; byte < 256; ++byte) {
        const bool expected = (byte >= 64 && byte < 128) || byte >= 192;
        EXPECT_EQ(toggles(byte), expected) << byte;
    }
}

TEST(ModeByte, ANewKindTakesTheLowFiveBits) {
    for (int byte = 0; byte < 256; ++byte) {
        const int kept = byte / 32 * 32;
        EXPECT_EQ(withKind(byte, note), kept + 9) << byte;
        EXPECT_EQ(withKind(byte, cc), kept + 11) << byte;
        EXPECT_EQ(withKind(byte, program), kept + 12) << byte;
        EXPECT_EQ(withKind(byte, bend), kept + 14) << byte;
    }
    EXPECT_EQ(withKind(0x49, program), 0x4C);
    EXPECT_EQ(withKind(0x19, note), 0x09);
}

TEST(ModeByte, InTheStoreANewKindTakesTheLowFourBits) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(withKindKeepingBit4(byte, cc), byte / 16 * 16 + 11) << byte;
    }
}

TEST(ModeByte, ATriggerOfOneControlClearsBits5And7) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(withTrigger(byte, false), byte % 32) << byte;
        EXPECT_EQ(withTrigger(byte, true), byte % 32 + 64) << byte;
    }
    EXPECT_EQ(withTrigger(0xB9, true), 0x59);
}

TEST(ModeByte, ATriggerOfAWholeLayerChangesBit6Alone) {
    for (int byte = 0; byte < 256; ++byte) {
        const int momentary = byte - byte / 64 % 2 * 64;
        EXPECT_EQ(withTriggerOfLayer(byte, false), momentary) << byte;
        EXPECT_EQ(withTriggerOfLayer(byte, true), momentary + 64) << byte;
    }
}

}  // namespace
}  // namespace config
