#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;
using testing::IsEmpty;

// A click on a control's button.

using ControlClick = UserDefinedTest;

TEST_F(ControlClick, PadButton65SelectsControl70AndLightsButton65Again) {
    window.keysOrderedByTag[65].click();
    EXPECT_EQ(state.selection.keyEvnt, 70);
    EXPECT_THAT(litOf(window.keysOrderedByTag), ElementsAre(65));
}

TEST_F(ControlClick, EveryPadButtonSelectsItsPadAndIsLitAlone) {
    constexpr std::array<int, 9> expected = {70, 69, 72, 65, 66, 71, 73, 68, 67};
    int tag = 65;
    for (const int control : expected) {
        window.keysOrderedByTag.at(static_cast<std::size_t>(tag)).click();
        EXPECT_EQ(state.selection.keyEvnt, control);
        EXPECT_EQ(state.selection.keyEvnt_bak, control);
        EXPECT_THAT(litOf(window.keysOrderedByTag), ElementsAre(tag));
        ++tag;
    }
}

TEST_F(ControlClick, EveryOtherButtonSelectsItsTagAndIsLitAlone) {
    for (int control = 0; control <= 64; ++control) {
        editor.click(control);
        EXPECT_EQ(state.selection.keyEvnt, control);
        EXPECT_EQ(state.selection.keyEvnt_bak, control);
        EXPECT_THAT(litOf(window.keysOrderedByTag), ElementsAre(control));
    }
}

TEST_F(ControlClick, ASecondClickKeepsTheButtonLit) {
    editor.click(7);
    editor.click(7);
    EXPECT_THAT(editor.litControls(), ElementsAre(7));
}

TEST_F(ControlClick, AnOrdinaryControlLightsTheCurrentModeLayerInUserDefinedMode) {
    state.layers.m_moLa = 2;
    editor.window.moLaCtrls[0].setState(0);
    editor.click(64);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
}

TEST_F(ControlClick, NoModeLayerIsLitWhereNoneIsCurrent) {
    window.moLaCtrls[0].setState(0);
    state.layers.m_moLa = 255;
    editor.click(10);
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_EQ(state.selection.key_sel, (std::array<int, 4>{0, 0, 0, 0}));
}

TEST_F(ControlClick, AHostsModeDoesNotLightTheModeLayer) {
    editor.chooseMode(1);
    editor.click(10);
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_EQ(state.selection.keyEvnt, 10);
}

TEST_F(ControlClick, EveryControlsStoredAssignmentIsShown) {
    for (int control = 0; control <= 73; ++control) {
        editor.channelOf(0, control) = static_cast<std::uint8_t>((control + 3) % 16);
        editor.numberOf(0, control) = static_cast<std::uint8_t>(127 - control);
        editor.statusOf(0, control) = static_cast<std::uint8_t>(control % 2 == 0 ? 0x4B : 0x0C);
        editor.click(control);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), (control + 3) % 16);
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 127 - control);
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), control % 2 == 0 ? 1 : 2);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), control % 2 == 0 ? 1 : 0);
    }
}

// Buttons.

using ControlLight = UserDefinedTest;

TEST_F(ControlLight, CleaningPutsTheRememberedControlsButtonOut) {
    window.keysOrderedByTag[12].setState(1);
    window.keysOrderedByTag[13].setState(1);
    state.selection.keyEvnt = 13;
    state.selection.keyEvnt_bak = 12;
    controller.cleanBnSel();
    EXPECT_EQ(window.keysOrderedByTag[12].state(), 0);
    EXPECT_EQ(window.keysOrderedByTag[13].state(), 1);
}

TEST_F(ControlLight, APadsButtonIsFoundThroughTheMap) {
    constexpr std::array<std::size_t, 9> tags = {68, 69, 73, 72, 66, 65, 70, 67, 71};
    for (int pad = 65; pad <= 73; ++pad) {
        const std::size_t tag = tags.at(static_cast<std::size_t>(pad - 65));
        controller.keepBnSel(pad);
        EXPECT_EQ(window.keysOrderedByTag.at(tag).state(), 1) << pad;
        state.selection.keyEvnt_bak = pad;
        controller.cleanBnSel();
        EXPECT_EQ(window.keysOrderedByTag.at(tag).state(), 0) << pad;
    }
}

TEST_F(ControlLight, NoControlHasNoButton) {
    const auto before = litOf(window.keysOrderedByTag);
    controller.keepBnSel(127);
    state.selection.keyEvnt_bak = 127;
    controller.cleanBnSel();
    EXPECT_EQ(litOf(window.keysOrderedByTag), before);
}

TEST_F(ControlLight, ANumberWithoutAButtonHasNoLight) {
    const auto before = litOf(window.keysOrderedByTag);
    for (const int control : {-1, 74, 79, 80, 126, 128, 255}) {
        controller.keepBnSel(control);
        state.selection.keyEvnt_bak = control;
        controller.cleanBnSel();
    }
    EXPECT_EQ(litOf(window.keysOrderedByTag), before);
}

// The last selection of each mode layer.

using SelectionMemory = UserDefinedTest;

TEST_F(SelectionMemory, AnOrdinaryControlIsRememberedForTheGivenLayer) {
    state.selection.keyEvnt = 64;
    controller.getKeySel(2);
    EXPECT_THAT(state.selection.key_sel, ElementsAre(0, 0, 64, 0));
    state.selection.keyEvnt = 31;
    controller.getKeySel(3);
    state.selection.keyEvnt = 36;
    controller.getKeySel(0);
    EXPECT_THAT(state.selection.key_sel, ElementsAre(36, 0, 64, 31));
}

TEST_F(SelectionMemory, LayerKeysPadsAndNothingAreNotRemembered) {
    state.selection.key_sel = {1, 2, 3, 4};
    for (const int control : {32, 33, 34, 35, 65, 73, 127}) {
        state.selection.keyEvnt = control;
        controller.getKeySel(1);
    }
    EXPECT_THAT(state.selection.key_sel, ElementsAre(1, 2, 3, 4));
}

TEST_F(SelectionMemory, NothingIsRememberedOrRestoredInAHostsMode) {
    state.modes.machn_mod = 1;
    state.selection.key_sel = {1, 2, 3, 127};
    state.selection.keyEvnt = 10;
    state.layers.m_moLa = 3;
    controller.getKeySel(1);
    controller.setKeySel();
    EXPECT_THAT(state.selection.key_sel, ElementsAre(1, 2, 3, 127));
    EXPECT_EQ(state.selection.keyEvnt, 10);
}

TEST_F(SelectionMemory, TheCurrentModeLayersSelectionIsRestored) {
    state.selection.key_sel = {1, 2, 3, 4};
    state.layers.m_moLa = 2;
    controller.setKeySel();
    EXPECT_EQ(state.selection.keyEvnt, 3);
}

TEST_F(SelectionMemory, ALayerThatRemembersNothingComesBackWithControlZero) {
    state.selection.key_sel = {1, 127, 3, 4};
    state.layers.m_moLa = 1;
    controller.setKeySel();
    EXPECT_EQ(state.selection.keyEvnt, 0);
    EXPECT_THAT(state.selection.key_sel, ElementsAre(1, 0, 3, 4));
}

TEST_F(SelectionMemory, WithoutACurrentModeLayerThereIsNoMemory) {
    state.selection.key_sel = {1, 2, 3, 4};
    state.selection.keyEvnt = 10;
    state.layers.m_moLa = 255;
    controller.setKeySel();
    for (const int layer : {255, 4, -1}) {
        controller.getKeySel(layer);
    }
    EXPECT_EQ(state.selection.keyEvnt, 10);
    EXPECT_THAT(state.selection.key_sel, ElementsAre(1, 2, 3, 4));
}

// Blank entries.

using BlankEntry = UserDefinedTest;

TEST_F(BlankEntry, EachBoxShowsOneHoweverOftenItIsAsked) {
    for (int i = 0; i < 2; ++i) {
        controller.rmTypSel();
        controller.rmChanSel();
        controller.rmTrigSel();
        controller.rmMsgSel();
    }
    EXPECT_EQ(itemsOf(window.combo_type), withBlank(itemsOf(data::msgTyp())));
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 3);
    EXPECT_EQ(itemsOf(window.combo_chan), withBlank(itemsOf(data::Chan())));
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 16);
    EXPECT_EQ(itemsOf(window.combo_trig), withBlank(itemsOf(data::TrigMod())));
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 4);
    EXPECT_EQ(itemsOf(window.combo_cc), withBlank(itemsOf(data::Note())));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 128);
}

TEST_F(BlankEntry, ItStandsWhereTheBoxesListEnds) {
    EXPECT_THAT(tcmtv, ElementsAre(3, 16, 128, 4, 108));
}

TEST_F(BlankEntry, AnEmptyValueBoxGetsOneToo) {
    window.combo_cc.removeAllItems();
    controller.rmMsgSel();
    EXPECT_THAT(itemsOf(window.combo_cc), ElementsAre("<blank>"));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 0);
}

TEST_F(BlankEntry, AnEmptyTextFromElsewhereIsNotTheBlank) {
    window.combo_trig.addItemWithObjectValue(std::string());
    controller.rmTrigSel();
    EXPECT_EQ(window.combo_trig.numberOfItems(), 6);
    EXPECT_TRUE(showsBlank(window.combo_trig));
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 5);
}

}  // namespace
}  // namespace editor
