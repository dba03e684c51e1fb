#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;
using testing::IsEmpty;

/// Whether a byte is exchanged between image and stores by a mode change.
bool isSwapped(int layer, int offset) {
    const int endOfChannels = layer == 0 ? 80 : 71;
    const int endOfNumbers = layer == 0 ? 160 : 151;
    return (offset >= 7 && offset < endOfChannels) || (offset >= 81 && offset < endOfNumbers) ||
           (offset >= 161 && offset < 246);
}

// User Defined mode to a host's and back.

class ModeSwitch : public UserDefinedTest {
protected:
    /// Gives every byte between header and trailer a value that the factory never gives it there.
    void editEverything() {
        for (int layer = 0; layer < 4; ++layer) {
            for (int offset = 7; offset < 247; ++offset) {
                editor.byte(layer, offset) = static_cast<std::uint8_t>(
                    state.stores.SysBuf_MCP.at(position(layer, offset)) ^ (0x20 + layer));
            }
        }
    }
    std::uint8_t parked(int layer, int offset) const {
        return state.stores.SysBuf_usrdef.at(static_cast<std::size_t>(layer) * 247 +
                                             static_cast<std::size_t>(offset));
    }
};

TEST_F(ModeSwitch, LeavingUserDefinedParksTheSwapRangesAndLoadsTheFactorys) {
    editEverything();
    const config::Image edited = state.sysData;
    const auto parkedBefore = state.stores.SysBuf_usrdef;
    editor.chooseMode(4);
    for (int layer = 0; layer < 4; ++layer) {
        for (int offset = 0; offset < 254; ++offset) {
            const std::uint8_t before = edited.at(position(layer, offset));
            if (isSwapped(layer, offset)) {
                ASSERT_EQ(parked(layer, offset), before) << layer << ' ' << offset;
                ASSERT_EQ(editor.byte(layer, offset),
                          state.stores.SysBuf_MCP.at(position(layer, offset)));
                continue;
            }
            ASSERT_EQ(editor.byte(layer, offset), offset == 248 ? 4 : before);
            if (offset < 247) {
                ASSERT_EQ(parked(layer, offset),
                          parkedBefore.at(static_cast<std::size_t>(layer) * 247 +
                                          static_cast<std::size_t>(offset)));
            }
        }
    }
}

TEST_F(ModeSwitch, ComingBackRestoresEveryByteInsideTheSwapRanges) {
    editEverything();
    const config::Image edited = state.sysData;
    editor.chooseMode(4);
    for (const int offset : {80, 160, 246, 247, 249, 250, 251, 252}) {
        editor.byte(0, offset) = 0x11;
    }
    editor.byte(1, 72) = 0x12;
    editor.chooseMode(0);
    for (int layer = 0; layer < 4; ++layer) {
        for (int offset = 0; offset < 254; ++offset) {
            if (isSwapped(layer, offset)) {
                ASSERT_EQ(editor.byte(layer, offset), edited.at(position(layer, offset)));
            }
        }
        EXPECT_EQ(editor.byte(layer, 248), 0);
    }
    for (const int offset : {80, 160, 246, 247, 249, 250, 251, 252}) {
        EXPECT_EQ(editor.byte(0, offset), 0x11) << offset;
    }
    EXPECT_EQ(editor.byte(1, 72), 0x12);
    EXPECT_EQ(editor.byte(0, 253), 0xF7);
}

TEST_F(ModeSwitch, PadsOfLayers1To3AndTheMasterFaderStayInForceInEveryMode) {
    for (int layer = 1; layer < 4; ++layer) {
        for (int control = 64; control <= 73; ++control) {
            editor.channelOf(layer, control) = 5;
            editor.numberOf(layer, control) = 6;
        }
    }
    editor.channelOf(0, 73) = 5;
    editor.numberOf(0, 73) = 6;
    for (const int mode : {5, 0}) {
        editor.chooseMode(mode);
        for (int layer = 1; layer < 4; ++layer) {
            for (int control = 64; control <= 73; ++control) {
                EXPECT_EQ(editor.channelOf(layer, control), 5);
                EXPECT_EQ(editor.numberOf(layer, control), 6);
            }
        }
        EXPECT_EQ(editor.channelOf(0, 73), 5);
        EXPECT_EQ(editor.numberOf(0, 73), 6);
    }
}

TEST_F(ModeSwitch, TheUsersFadersSendControlChange) {
    for (int layer = 0; layer < 4; ++layer) {
        for (int control = 56; control <= 64; ++control) {
            EXPECT_EQ(editor.statusOf(layer, control), 0x0B);
        }
    }
    editor.chooseMode(1);
    EXPECT_EQ(editor.statusOf(2, 59), 0x0E);
}

TEST_F(ModeSwitch, AnEmptyUserStoreLeavesTheFactorysAssignmentsAndSaysSoInTheTitle) {
    editor.chooseMode(2);
    state.stores.SysBuf_usrdef[246] = 0;
    config::Image expected = state.sysData;
    for (int layer = 0; layer < 4; ++layer) {
        expected.at(position(layer, 248)) = 0;
    }
    editor.chooseMode(0);
    EXPECT_EQ(state.sysData, expected);
    EXPECT_EQ(window.window.title(), "Tormelk  - usrdefmoddatNull");
    EXPECT_EQ(state.modes.machn_mod, 0);
}

TEST_F(ModeSwitch, OtherwiseTheTitleStays) {
    editor.chooseMode(2);
    editor.chooseMode(0);
    EXPECT_EQ(window.window.title(), "Tormelk Wyro");
}

TEST_F(ModeSwitch, TheModeIsWrittenIntoAllFourBlocks) {
    for (const int mode : {5, 3, 0, 1, 4, 2}) {
        state.sysData[248] = 99;
        state.sysData[1010] = 98;
        const int before = state.modes.machn_mod;
        editor.chooseMode(mode);
        EXPECT_EQ(state.sysData[248], mode);
        EXPECT_EQ(state.sysData[502], mode);
        EXPECT_EQ(state.sysData[756], mode);
        EXPECT_EQ(state.sysData[1010], mode);
        EXPECT_EQ(state.modes.machn_mod, mode);
        EXPECT_EQ(state.modes.machn_mod_bakup, before);
    }
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(ModeSwitch, EnteringAHostsModeClearsTheSelection) {
    editor.click(20);
    editor.chooseMode(3);
    EXPECT_EQ(state.selection.keyEvnt, 127);
    EXPECT_THAT(editor.litControls(), IsEmpty());
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_TRUE(showsBlank(window.combo_type));
    EXPECT_TRUE(showsBlank(window.combo_chan));
    EXPECT_TRUE(showsBlank(window.combo_trig));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
}

TEST_F(ModeSwitch, EnteringAHostsModeForgetsTheControlItHadJustKept) {
    editor.click(20);
    editor.chooseMode(3);
    EXPECT_EQ(state.selection.keyEvnt_bak, 127);  // the last step of the switch overwrites it
}

TEST_F(ModeSwitch, TheBlankOfTheValueBoxIsShownOnTheWay) {
    std::vector<std::string> shown;
    window.combo_cc.onChange = [&](toolkit::ComboBox::Change change) {
        if (change == toolkit::ComboBox::Change::Selection) {
            shown.emplace_back(showsBlank(window.combo_cc) ? "blank" : "value");
        }
    };
    editor.chooseMode(3);
    EXPECT_THAT(shown, ElementsAre("blank"));
}

TEST_F(ModeSwitch, EveryPropertyBoxIsDisabledInAHostsMode) {
    for (const int mode : {1, 2, 3, 4, 5}) {
        editor.chooseMode(mode);
        EXPECT_FALSE(window.combo_type.isEnabled());
        EXPECT_FALSE(window.combo_chan.isEnabled());
        EXPECT_FALSE(window.combo_cc.isEnabled());
        EXPECT_FALSE(window.combo_trig.isEnabled());
        EXPECT_TRUE(window.combo_mode.isEnabled());
    }
}

TEST_F(ModeSwitch, HuiModeOffersNoValues) {
    editor.chooseMode(5);
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
    EXPECT_EQ(state.selection.msg_Typ, 1);
}

TEST_F(ModeSwitch, AControlFromBeforeWithNothingSelectedIsKept) {
    state.selection.keyEvnt = 127;
    state.selection.keyEvnt_bak = 20;
    controller.keepBnSel(20);
    editor.chooseMode(1);
    EXPECT_EQ(window.keysOrderedByTag[20].state(), 0);
    EXPECT_EQ(state.selection.keyEvnt, 127);
}

// Between hosts.

TEST_F(ModeSwitch, BetweenHostsOnlyTheFourModeBytesChange) {
    editor.chooseMode(1);
    for (const int mode : {4, 2, 5, 3, 1}) {
        editEverything();
        config::Image expected = state.sysData;
        const auto stores = state.stores.SysBuf_usrdef;
        for (int layer = 0; layer < 4; ++layer) {
            expected.at(position(layer, 248)) = static_cast<std::uint8_t>(mode);
        }
        editor.chooseMode(mode);
        EXPECT_EQ(state.sysData, expected);
        EXPECT_EQ(state.stores.SysBuf_usrdef, stores);
    }
}

TEST_F(ModeSwitch, BetweenHostsTheSelectionIsCleared) {
    editor.chooseMode(1);
    editor.clickModeLayer(2);
    editor.chooseMode(4);
    EXPECT_EQ(state.selection.keyEvnt, 127);
    EXPECT_EQ(state.selection.keyEvnt_bak, 127);
    EXPECT_THAT(editor.litControls(), IsEmpty());
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
}

TEST_F(ModeSwitch, TheSameHostAgainKeepsTheSelection) {
    editor.chooseMode(1);
    editor.click(20);
    const config::Image before = state.sysData;
    controller.comboBoxSelectionIsChanging(window.combo_mode);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_THAT(editor.litControls(), ElementsAre(20));
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.modes.machn_mod_bakup, 1);
}

TEST_F(ModeSwitch, UserDefinedModeAgainParksAndKeepsTheSelection) {
    editEverything();
    editor.click(20);
    const config::Image before = state.sysData;
    state.modes.machn_mod_bakup = 3;
    controller.comboBoxSelectionIsChanging(window.combo_mode);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(parked(2, 30), before.at(position(2, 30)));
    EXPECT_EQ(state.modes.machn_mod_bakup, 0);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0));
}

TEST_F(ModeSwitch, UserDefinedModeAgainParksALayerKey) {
    editor.click(33);
    controller.comboBoxSelectionIsChanging(window.combo_mode);
    EXPECT_EQ(state.selection.keyEvnt_bak_pad, 33);
    EXPECT_EQ(state.selection.keyEvnt, 127);
    EXPECT_TRUE(window.combo_trig.isEnabled());
}

TEST_F(ModeSwitch, ChoosingTheModeThatIsShownDoesNothing) {
    editor.click(33);
    state.modes.machn_mod_bakup = 3;
    editor.chooseMode(0);
    EXPECT_EQ(state.modes.machn_mod_bakup, 3);
    EXPECT_EQ(state.selection.keyEvnt, 33);
}

// Back to User Defined mode.

TEST_F(ModeSwitch, ComingBackShowsTheModeLayersLastControl) {
    editor.clickModeLayer(2);
    editor.click(50);
    editor.chooseMode(3);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt, 50);
    EXPECT_EQ(state.layers.m_moLa, 2);
    EXPECT_EQ(state.layers.layrData, 2);
    EXPECT_THAT(editor.litControls(), ElementsAre(50));
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
    EXPECT_TRUE(window.combo_type.isEnabled());
    EXPECT_TRUE(window.combo_chan.isEnabled());
    EXPECT_TRUE(window.combo_cc.isEnabled());
    EXPECT_FALSE(window.combo_trig.isEnabled());  // an encoder
    EXPECT_EQ(state.selection.keyEvnt_bak_pad, 127);
}

TEST_F(ModeSwitch, ComingBackEnablesTheTriggerBoxForAControlThatHasOne) {
    editor.click(20);
    editor.chooseMode(3);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_TRUE(window.combo_trig.isEnabled());
}

TEST_F(ModeSwitch, WithThePadEditorOpenTheTriggerBoxIsEnabledByTheSameRule) {
    for (const int control : {47, 48, 64}) {
        editor.click(control);
        editor.chooseMode(3);
        state.pads.pad_modal = 1;  // so that nothing is shown, and the box not judged again
        editor.chooseMode(0);
        state.pads.pad_modal = 0;
        EXPECT_EQ(state.selection.keyEvnt, control);
        EXPECT_EQ(window.combo_trig.isEnabled(), control <= 47) << control;
    }
}

TEST_F(ModeSwitch, AControlClickedInAHostsModeGivesWayToTheModeLayersOwn) {
    editor.click(12);
    editor.chooseMode(3);
    editor.click(40);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt_bak_pad, 40);
    EXPECT_EQ(state.selection.keyEvnt, 12);
    EXPECT_THAT(editor.litControls(), ElementsAre(12));
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0));
}

TEST_F(ModeSwitch, TheMasterFaderClickedInAHostsModeGivesWayAsWell) {
    editor.click(12);
    editor.chooseMode(3);
    editor.click(64);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt, 12);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0));
}

TEST_F(ModeSwitch, APadClickedInAHostsModeStaysSelected) {
    editor.chooseMode(3);
    editor.click(70);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt, 70);
    EXPECT_THAT(editor.litControls(), ElementsAre(70));
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

TEST_F(ModeSwitch, ALayerKeyClickedInAHostsModeIsParked) {
    editor.click(12);
    editor.chooseMode(3);
    editor.clickModeLayer(1);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt_bak_pad, 33);
    EXPECT_EQ(state.layers.m_moLa, 1);
    EXPECT_EQ(state.selection.keyEvnt, 0);  // what mode layer 1 remembers
    EXPECT_EQ(state.layers.layrData, 0);    // the block does not follow
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(1));
    EXPECT_THAT(editor.litControls(), ElementsAre(0));
}

TEST_F(ModeSwitch, WithNothingSelectedTheHighlightedControlComesBack) {
    editor.chooseMode(3);
    state.selection.keyEvnt = 127;
    state.selection.keyEvnt_bak = 66;
    window.moLaCtrls[0].setState(1);
    editor.chooseMode(0);
    EXPECT_EQ(state.selection.keyEvnt_bak_pad, 127);
    EXPECT_EQ(state.selection.keyEvnt, 66);
    EXPECT_THAT(editor.litModeLayers(), IsEmpty()) << "a pad is shown";
}

TEST_F(ModeSwitch, TheBoxesShowTheRestoredAssignment) {
    editor.click(20);
    window.combo_chan.choose(7);
    window.combo_cc.choose(99);
    window.combo_type.choose(2);
    window.combo_trig.choose(1);
    editor.chooseMode(3);
    editor.chooseMode(0);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 7);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 99);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Prog()));
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 2);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
}

}  // namespace
}  // namespace editor
