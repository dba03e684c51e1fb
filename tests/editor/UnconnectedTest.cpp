#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "editor/TestEditor.h"

// What nothing in the product asks for. Its labels are in LabelsTest.cpp, the pad editor's lights
// in PadTest.cpp.

namespace editor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The two bytes with actions of their own.

using AbsoluteBytes = UserDefinedTest;

TEST_F(AbsoluteBytes, ToggleFlipsBits0And2OfByte73) {
    state.sysData[73] = 0;
    controller.toggle();
    EXPECT_EQ(state.sysData[73], 5);
    controller.toggle();
    EXPECT_EQ(state.sysData[73], 0);
    state.sysData[73] = 7;
    controller.toggle();
    EXPECT_EQ(state.sysData[73], 2);
}

TEST_F(AbsoluteBytes, GradualMakesByte75OneOrZero) {
    state.sysData[75] = 7;
    controller.gradual();
    EXPECT_EQ(state.sysData[75], 0);
    controller.gradual();
    EXPECT_EQ(state.sysData[75], 1);
    controller.gradual();
    EXPECT_EQ(state.sysData[75], 0);
}

TEST_F(AbsoluteBytes, BothActOnTheFirstBlockWhateverBlockIsShown) {
    state.layers.layrData = 2;
    config::Image expected = state.sysData;
    expected[73] ^= 5;
    expected[75] = 1;
    controller.toggle();
    controller.gradual();
    EXPECT_EQ(state.sysData, expected);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(AbsoluteBytes, TheyAreTheChannelsOfTwoPads) {
    editor.click(66);
    controller.toggle();
    EXPECT_EQ(editor.channelOf(0, 66), 5);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 5);
    editor.click(68);
    controller.gradual();
    EXPECT_EQ(editor.channelOf(0, 68), 1);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 1);
}

TEST_F(AbsoluteBytes, WithNothingSelectedTheChannelBoxKeepsItsBlank) {
    controller.dataChgCore(127);
    controller.toggle();
    controller.gradual();
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 16);
}

TEST_F(AbsoluteBytes, TheConnectionPointsDoNothing) {
    editor.click(20);
    const config::Image image = state.sysData;
    controller.typeSelect2();
    controller.substain();
    controller.drv_ver_func();
    controller.next();
    controller.back();
    controller.subUpdate2();
    controller.ik_Push();
    controller.ik_Pop();
    EXPECT_EQ(state.sysData, image);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_THAT(editor.litControls(), ElementsAre(20));
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST(SecondMessageForm, HasItsFifteenBytesInOnePacket) {
    const platform::MIDIPacketListPtr list = mainController::getMidiPacketList();
    ASSERT_NE(list, nullptr);
    const auto packets = support::recordOf(*list);
    ASSERT_EQ(packets.size(), 1U);
    EXPECT_EQ(packets[0].timeStamp, 0U);
    EXPECT_THAT(packets[0].bytes, ElementsAre(0xF0, 0x1D, 0x03, 0x00, 0x65, 0x4E, 0x67, 0x67, 0x67,
                                              0x67, 0x67, 0x67, 0x00, 0x67, 0xF7));
}

TEST(SecondMessageForm, IsNewEachTime) {
    const platform::MIDIPacketListPtr first = mainController::getMidiPacketList();
    const platform::MIDIPacketListPtr second = mainController::getMidiPacketList();
    EXPECT_NE(first.get(), second.get());
}

TEST(ByteCopies, CopyFromTheFirstByte) {
    const std::array<std::uint8_t, 4> source{1, 2, 3, 4};
    std::array<std::uint8_t, 4> destination{9, 9, 9, 9};
    mainController::mamcpy(source, 3, destination);
    EXPECT_THAT(destination, ElementsAre(1, 2, 3, 9));
}

TEST(ByteCopies, CopyFromAPlaceToAPlace) {
    const std::array<std::uint8_t, 4> source{1, 2, 3, 4};
    std::array<std::uint8_t, 4> destination{9, 9, 9, 9};
    mainController::mamcpy2(source, 2, 2, destination, 1);
    EXPECT_THAT(destination, ElementsAre(9, 3, 4, 9));
}

TEST(ByteCopies, CopyToTwoPlaces) {
    const std::array<std::uint8_t, 4> source{1, 2, 3, 4};
    std::array<std::uint8_t, 4> first{9, 9, 9, 9};
    std::array<std::uint8_t, 3> second{8, 8, 8};
    mainController::mamcpy2_2des(source, 1, 2, first, 2, second, 0);
    EXPECT_THAT(first, ElementsAre(9, 9, 2, 3));
    EXPECT_THAT(second, ElementsAre(2, 3, 8));
}

TEST(ByteCopies, StayWithinBothSides) {
    const std::array<std::uint8_t, 4> source{1, 2, 3, 4};
    std::array<std::uint8_t, 3> destination{9, 9, 9};
    mainController::mamcpy(source, 100, destination);
    EXPECT_THAT(destination, ElementsAre(1, 2, 3));
    mainController::mamcpy2(source, 3, 100, destination, 0);
    EXPECT_THAT(destination, ElementsAre(4, 2, 3));
    mainController::mamcpy2(source, 0, 100, destination, 2);
    EXPECT_THAT(destination, ElementsAre(4, 2, 1));
    mainController::mamcpy2(source, 100, 1, destination, 0);
    mainController::mamcpy2(source, 0, 1, destination, 100);
    EXPECT_THAT(destination, ElementsAre(4, 2, 1));
}

TEST_F(EditorTest, TheVersionIsWhatItWasSetTo) {
    EXPECT_EQ(controller.ver(), 0);
    controller.setver(-7);
    EXPECT_EQ(controller.ver(), -7);
}

}  // namespace
}  // namespace editor
