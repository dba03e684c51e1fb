#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;

/// An image has just been put in place; the boxes still show the one before.
class AfterALoad : public UserDefinedTest {
protected:
    void putMode(int mode) {
        for (int layer = 0; layer < 4; ++layer) {
            editor.byte(layer, 248) = static_cast<std::uint8_t>(mode);
        }
        window.combo_mode.selectItemAtIndex(mode);
    }
};

TEST_F(AfterALoad, TheModeComesFromTheFirstBlock) {
    for (const int mode : {5, 0, 3, 7, 255}) {
        putMode(1);
        editor.byte(0, 248) = static_cast<std::uint8_t>(mode);
        controller.typeJudge();
        EXPECT_EQ(state.modes.machn_mod, mode);
    }
}

TEST_F(AfterALoad, AHostsModeMakesTheSelectedControlANote) {
    putMode(4);
    state.layers.layrData = 2;
    state.selection.keyEvnt = 50;
    editor.statusOf(2, 50) = 0xFB;
    window.combo_type.selectItemAtIndex(2);
    config::Image expected = state.sysData;
    expected.at(position(2, 167 + 50)) = 0xE9;
    controller.typeJudge();
    EXPECT_EQ(state.sysData, expected);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 0);
}

TEST_F(AfterALoad, AHostsModeWritesEvenWithNothingSelected) {
    putMode(4);
    state.selection.keyEvnt = 127;
    for (int layer = 0; layer < 3; ++layer) {
        state.layers.layrData = layer;
        const std::size_t at = position(layer, 167 + 127);
        state.sysData.at(at) = 0x4C;
        config::Image expected = state.sysData;
        expected.at(at) = 0x49;
        window.combo_type.selectItemAtIndex(2);
        controller.typeJudge();
        EXPECT_EQ(state.sysData, expected) << layer;
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 0);
    }
}

TEST_F(AfterALoad, BehindTheImageNothingIsWritten) {
    putMode(4);
    state.selection.keyEvnt = 127;
    state.layers.layrData = 3;
    state.sysData.at(1023) = 0x4C;
    const config::Image before = state.sysData;
    window.combo_type.selectItemAtIndex(2);
    controller.typeJudge();
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 0);
}

TEST_F(AfterALoad, UserDefinedModeShowsTheKindOfTheSelectedControl) {
    putMode(0);
    state.layers.layrData = 1;
    state.selection.keyEvnt = 50;
    struct Case {
        int status;
        int index;
    };
    // Unlike elsewhere, anything but control change and program change counts as a note.
    for (const Case& given : {Case{0x4B, 1}, Case{0x2C, 2}, Case{0x09, 0}, Case{0x0E, 0},
                              Case{0x08, 0}, Case{0x1C, 2}, Case{0x1B, 1}, Case{0x00, 0}}) {
        editor.statusOf(1, 50) = static_cast<std::uint8_t>(given.status);
        const config::Image before = state.sysData;
        controller.typeJudge();
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), given.index) << given.status;
        EXPECT_EQ(state.sysData, before);
    }
}

TEST_F(AfterALoad, UserDefinedModeEnablesTheTriggerButton) {
    putMode(0);
    window.trigger.setEnabled(false);
    state.sysData[73] = 3;
    controller.typeJudge();
    EXPECT_TRUE(window.trigger.isEnabled());
    EXPECT_EQ(window.trigger.state(), 1);
}

TEST_F(AfterALoad, AHostsModeLeavesTheTriggerButtonAlone) {
    putMode(1);
    window.trigger.setEnabled(false);
    state.sysData[73] = 3;
    controller.typeJudge();
    EXPECT_FALSE(window.trigger.isEnabled());
    EXPECT_EQ(window.trigger.state(), 0);
}

TEST_F(AfterALoad, UserDefinedModeWithNothingSelectedJudgesNothing) {
    putMode(0);
    state.selection.keyEvnt = 127;
    window.trigger.setEnabled(false);
    window.combo_type.selectItemAtIndex(2);
    const config::Image before = state.sysData;
    controller.typeJudge();
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 2);
    EXPECT_FALSE(window.trigger.isEnabled());
    EXPECT_EQ(state.sysData, before);
}

// Value and channel.

TEST_F(AfterALoad, WithNothingSelectedValueAndChannelStay) {
    state.selection.keyEvnt = 127;
    window.combo_cc.selectItemAtIndex(50);
    window.combo_chan.selectItemAtIndex(9);
    controller.selchange_Aft_TypeJudg();
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 50);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 9);
}

TEST_F(AfterALoad, InUserDefinedModeTheValueListFollowsTheKind) {
    state.layers.layrData = 2;
    state.selection.keyEvnt = 50;
    editor.numberOf(2, 50) = 45;
    editor.channelOf(2, 50) = 6;
    struct Case {
        int status;
        std::vector<std::string> items;
    };
    for (const Case& given : {Case{0x0B, itemsOf(data::CC())}, Case{0x49, itemsOf(data::Note())},
                              Case{0x0E, itemsOf(data::CC())}, Case{0x0C, itemsOf(data::Prog())},
                              Case{0x19, itemsOf(data::Note())}}) {
        editor.statusOf(2, 50) = static_cast<std::uint8_t>(given.status);
        controller.selchange_Aft_TypeJudg();
        EXPECT_EQ(itemsOf(window.combo_cc), given.items) << given.status;
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 45);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 6);
    }
}

TEST_F(AfterALoad, AnUnknownKindBecomesANoteUnlessItIsShownAsOne) {
    editor.statusOf(0, 0) = 0x08;
    window.combo_cc.removeAllItems();
    window.combo_type.selectItemAtIndex(1);
    controller.selchange_Aft_TypeJudg();
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 0);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
    EXPECT_EQ(editor.statusOf(0, 0), 0x08);

    window.combo_cc.removeAllItems();
    controller.selchange_Aft_TypeJudg();
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
}

TEST_F(AfterALoad, InAHostsModeTheListStaysAndValueAndChannelAreShown) {
    editor.numberOf(0, 0) = 45;
    editor.channelOf(0, 0) = 6;
    editor.statusOf(0, 0) = 0x0B;
    for (const int mode : {1, 2, 3, 4}) {
        window.combo_mode.selectItemAtIndex(mode);
        window.combo_cc.selectItemAtIndex(-1);
        window.combo_chan.selectItemAtIndex(-1);
        controller.selchange_Aft_TypeJudg();
        EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note())) << mode;
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 45) << mode;
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 6) << mode;
    }
}

TEST_F(AfterALoad, InHuiModeOnlyTheChannelIsShown) {
    editor.numberOf(0, 0) = 45;
    editor.channelOf(0, 0) = 6;
    window.combo_mode.selectItemAtIndex(5);
    window.combo_cc.selectItemAtIndex(3);
    controller.selchange_Aft_TypeJudg();
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 3);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 6);
}

TEST_F(AfterALoad, InAnUnknownModeNothingIsShown) {
    editor.numberOf(0, 0) = 45;
    editor.channelOf(0, 0) = 6;
    window.combo_mode.selectItemAtIndex(9);
    window.combo_cc.selectItemAtIndex(3);
    window.combo_chan.selectItemAtIndex(4);
    controller.selchange_Aft_TypeJudg();
    window.combo_mode.addItemWithObjectValue("a mode more");
    window.combo_mode.selectItemAtIndex(6);
    controller.selchange_Aft_TypeJudg();
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 3);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 4);
}

TEST_F(AfterALoad, BeforeTheWindowIsAwakeNuendoAndUserDefinedModeShowNothing) {
    editor.numberOf(0, 0) = 45;
    editor.channelOf(0, 0) = 6;
    editor.statusOf(0, 0) = 0x0B;
    state.isInit = 0;
    for (const int mode : {1, 0}) {
        window.combo_mode.selectItemAtIndex(mode);
        window.combo_cc.selectItemAtIndex(3);
        window.combo_chan.selectItemAtIndex(4);
        controller.selchange_Aft_TypeJudg();
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 4);
        EXPECT_NE(window.combo_cc.indexOfSelectedItem(), 45);
    }
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::CC()));  // the list is filled even so
    for (const int mode : {2, 3, 4}) {
        window.combo_mode.selectItemAtIndex(mode);
        window.combo_cc.selectItemAtIndex(3);
        controller.selchange_Aft_TypeJudg();
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 45);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 6);
    }
}

}  // namespace
}  // namespace editor
