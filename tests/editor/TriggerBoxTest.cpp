#include <gtest/gtest.h>

#include "editor/TestEditor.h"

namespace editor {
namespace {

using Image = config::Image;

class TriggerBox : public UserDefinedTest {
protected:
    /// Selects a control in a layer, whatever the buttons would do.
    void edit(int layer, int control) {
        state.layers.layrData = layer;
        controller.dataChgCore(control);
    }
};

TEST_F(TriggerBox, ToggleForStatusB9Gives59ThenAllToggleSetsBit6OfTheLayer) {
    for (int control = 0; control < 80; ++control) {
        editor.statusOf(2, control) = 0xB9;
    }
    edit(2, 20);
    window.combo_trig.choose(1);
    EXPECT_EQ(editor.statusOf(2, 20), 0x59);
    window.combo_trig.choose(3);
    for (int control = 0; control < 80; ++control) {
        const int expected = control == 20 ? 0x59 : control <= 46 ? 0xF9 : 0xB9;
        EXPECT_EQ(editor.statusOf(2, control), expected) << control;
    }
}

TEST_F(TriggerBox, ASingleChoiceKeepsTheLowFiveBitsAlone) {
    for (int status = 0; status < 256; ++status) {
        for (const int choice : {0, 1}) {
            editor.statusOf(0, 12) = static_cast<std::uint8_t>(status);
            edit(0, 12);
            window.combo_trig.selectItemAtIndex(-1);
            Image expected = state.sysData;
            expected.at(position(0, 167 + 12)) =
                static_cast<std::uint8_t>((status & 0x1F) | (choice * 64));
            window.combo_trig.choose(choice);
            ASSERT_EQ(state.sysData, expected) << status;
        }
    }
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(TriggerBox, AllToggleLeavesControl47Out) {
    edit(1, 0);
    Image expected = state.sysData;
    for (int control = 0; control <= 46; ++control) {
        expected.at(position(1, 167 + control)) |= 0x40;
    }
    window.combo_trig.choose(3);
    EXPECT_EQ(state.sysData, expected);
    EXPECT_EQ(editor.statusOf(1, 46), 0x49);
    EXPECT_EQ(editor.statusOf(1, 47), 0x09);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(TriggerBox, AllMomentaryClearsBit6AndLeavesControl47Out) {
    edit(2, 0);
    Image expected = state.sysData;
    for (int control = 0; control <= 46; ++control) {
        expected.at(position(2, 167 + control)) &= 0xBF;
    }
    window.combo_trig.choose(2);
    EXPECT_EQ(state.sysData, expected);
    EXPECT_EQ(editor.statusOf(2, 46), 0x09);
    EXPECT_EQ(editor.statusOf(2, 47), 0x49);
}

TEST_F(TriggerBox, AnAllChoiceKeepsTheFactoryPadsBitAndBits5And7) {
    editor.statusOf(0, 5) = 0xBF;
    edit(0, 0);
    window.combo_trig.choose(3);
    EXPECT_EQ(editor.statusOf(0, 5), 0xFF);
    window.combo_trig.choose(2);
    EXPECT_EQ(editor.statusOf(0, 5), 0xBF);
}

TEST_F(TriggerBox, AnAllChoiceIsRememberedForItsLayerUntilASingleOne) {
    edit(1, 5);
    window.combo_trig.choose(3);
    EXPECT_TRUE(state.layers.bTrigAll.isSet(1));
    EXPECT_FALSE(state.layers.bTrigAll.isSet(0));
    edit(1, 6);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 3);
    window.combo_trig.choose(0);
    EXPECT_FALSE(state.layers.bTrigAll.isSet(1));
    EXPECT_EQ(editor.statusOf(1, 6), 0x09);
    EXPECT_EQ(editor.statusOf(1, 5), 0x49);
    edit(1, 5);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    window.combo_trig.choose(2);
    EXPECT_TRUE(state.layers.bTrigAll.isSet(1));
    window.combo_trig.choose(1);
    EXPECT_FALSE(state.layers.bTrigAll.isSet(1));
}

TEST_F(TriggerBox, ATriggerChoiceRefreshesNothing) {
    edit(0, 5);
    window.combo_chan.selectItemAtIndex(9);
    window.combo_cc.selectItemAtIndex(10);
    window.combo_type.selectItemAtIndex(2);
    for (const int choice : {1, 3, 2, 0}) {
        window.combo_trig.choose(choice);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), choice);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 9);
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 10);
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 2);
    }
}

TEST_F(TriggerBox, ABlankTriggerShowsTheStoredOneAgainOnlyWhileTheValueBoxStandsAt4) {
    controller.rmTrigSel();
    editor.statusOf(0, 5) = 0x49;
    editor.numberOf(0, 5) = 5;
    edit(0, 5);
    const Image before = state.sysData;
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 4);  // the blank stays

    editor.numberOf(0, 5) = 4;
    edit(0, 5);
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    editor.numberOf(0, 5) = 5;
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(TriggerBox, ASecondBlankIsABlankToo) {
    window.combo_trig.addItemWithObjectValue(toolkit::blankEntry);
    window.combo_trig.addItemWithObjectValue(toolkit::blankEntry);
    editor.numberOf(0, 5) = 4;
    edit(0, 5);
    const Image before = state.sysData;
    window.combo_trig.choose(5);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 0);
    EXPECT_EQ(state.sysData, before);
}

TEST_F(TriggerBox, ABlankTriggerAsksThePadLayersBlock) {
    controller.rmTrigSel();
    editor.statusOf(1, 5) = 0x09;
    editor.statusOf(3, 5) = 0x49;
    editor.numberOf(1, 5) = 4;
    edit(1, 5);
    state.layers.m_paLa = 3;
    state.layers.bTrigAll.set(1, true);
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);

    state.layers.bTrigAll.set(1, false);
    state.layers.bTrigAll.set(3, true);
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 3);
    editor.statusOf(3, 5) = 0x09;
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 2);

    // From control 48 on, and in a host's mode, there is no "All".
    state.modes.machn_mod = 1;
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 0);
    state.modes.machn_mod = 0;
    state.selection.keyEvnt = 48;
    window.combo_trig.choose(4);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 0);
}

TEST_F(TriggerBox, TheTriggerBoxCanBeGreyed) {
    ASSERT_TRUE(window.combo_trig.isEnabled());
    controller.toggleGray();
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

TEST_F(TriggerBox, TheTriggerButtonShowsByte73) {
    window.trigger.setEnabled(false);
    state.sysData[73] = 5;
    controller.triggerEnable();
    EXPECT_TRUE(window.trigger.isEnabled());
    EXPECT_EQ(window.trigger.state(), 1);
    state.sysData[73] = 0;
    controller.triggerEnable();
    EXPECT_EQ(window.trigger.state(), 0);
}

TEST_F(TriggerBox, TheTriggerButtonFollowsItsByteThroughEveryActionThatChangesIt) {
    state.sysData[73] = 0;
    controller.toggle();
    EXPECT_EQ(window.trigger.state(), 1);
    controller.toggle();
    EXPECT_EQ(window.trigger.state(), 0);

    edit(0, 66);  // whose channel the byte is
    window.combo_chan.choose(3);
    EXPECT_EQ(window.trigger.state(), 1);
    editor.chooseMode(1);  // the host's image has 0 there
    EXPECT_EQ(window.trigger.state(), 0);
    editor.chooseMode(0);
    EXPECT_EQ(window.trigger.state(), 1);
}

}  // namespace
}  // namespace editor
