#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;
using testing::IsEmpty;

// Showing a control.

using ShowingAControl = UserDefinedTest;

TEST_F(ShowingAControl, TheEditedLayersBlockIsShown) {
    for (int layer = 0; layer < 4; ++layer) {
        editor.channelOf(layer, 5) = static_cast<std::uint8_t>(layer + 1);
        editor.numberOf(layer, 5) = static_cast<std::uint8_t>(100 + layer);
        editor.statusOf(layer, 5) = 0x09;
        state.layers.layrData = layer;
        controller.dataChgCore(5);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), layer + 1);
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 100 + layer);
    }
}

TEST_F(ShowingAControl, ItReplacesTheOldSelectionAndItsLight) {
    controller.dataChgCore(20);
    controller.dataChgCore(66);
    EXPECT_THAT(editor.litControls(), ElementsAre(66));
    EXPECT_THAT(litOf(window.keysOrderedByTag), ElementsAre(69));
    EXPECT_EQ(state.selection.keyEvnt, 66);
    EXPECT_EQ(state.selection.keyEvnt_bak, 66);
    controller.dataChgCore(127);
    EXPECT_THAT(editor.litControls(), IsEmpty());
    EXPECT_EQ(state.selection.keyEvnt, 127);
    EXPECT_EQ(state.selection.keyEvnt_bak, 127);
}

TEST_F(ShowingAControl, InAHostsModeAnyControlButALayerKeyPutsTheModeLayerOut) {
    editor.chooseMode(2);
    for (const int control : {0, 31, 36, 64, 65, 73}) {
        window.moLaCtrls[0].setState(1);
        controller.dataChgCore(control);
        EXPECT_THAT(editor.litModeLayers(), IsEmpty()) << control;
    }
    for (const int control : {32, 35, 127}) {
        window.moLaCtrls[0].setState(1);
        controller.dataChgCore(control);
        EXPECT_EQ(editor.litModeLayers().count(0), 1U) << control;
    }
}

TEST_F(ShowingAControl, InUserDefinedModeTheModeLayerStaysLit) {
    for (const int control : {0, 36, 64, 70}) {
        controller.dataChgCore(control);
        EXPECT_THAT(editor.litModeLayers(), ElementsAre(0)) << control;
    }
}

TEST_F(ShowingAControl, ALayerKeyLightsTheModeLayerOfItsOwnNumberToo) {
    editor.click(34);
    EXPECT_THAT(editor.litControls(), ElementsAre(34));
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0, 2));
}

TEST_F(ShowingAControl, EncodersFadersAndPadsHaveNoTriggerBehaviour) {
    for (int control = 0; control <= 73; ++control) {
        editor.click(control);
        EXPECT_EQ(window.combo_trig.isEnabled(), control < 48) << control;
    }
    controller.dataChgCore(127);
    EXPECT_TRUE(window.combo_trig.isEnabled());
}

TEST_F(ShowingAControl, TheTriggerBoxIsGreyInEveryHostsMode) {
    for (int mode = 1; mode <= 5; ++mode) {
        editor.chooseMode(mode);
        window.combo_trig.setEnabled(true);
        editor.click(10);
        EXPECT_FALSE(window.combo_trig.isEnabled()) << "mode " << mode;
    }
}

TEST_F(ShowingAControl, TheTriggerBoxAsksTheModeBoxAndNotTheMode) {
    state.modes.machn_mod = 1;
    window.combo_mode.selectItemAtIndex(0);
    controller.dataChgCore(10);
    EXPECT_TRUE(window.combo_trig.isEnabled());
    state.modes.machn_mod = 0;
    window.combo_mode.selectItemAtIndex(4);
    controller.dataChgCore(10);
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

int kindOfNibble(int nibble) {
    switch (nibble) {
        case 9:
            return 0;
        case 11:
        case 14:
            return 1;
        case 12:
            return 2;
        default:
            return 63;
    }
}

std::vector<std::string> listOfKind(int kind) {
    switch (kind) {
        case 0:
            return itemsOf(data::Note());
        case 1:
            return itemsOf(data::CC());
        default:
            return itemsOf(data::Prog());
    }
}

TEST_F(ShowingAControl, TheKindIsJudgedByTheLowNibbleAlone) {
    for (int status = 0; status < 256; ++status) {
        editor.statusOf(0, 8) = static_cast<std::uint8_t>(status);
        editor.numberOf(0, 8) = 33;
        controller.dataChgCore(8);
        const int kind = kindOfNibble(status & 0x0F);
        ASSERT_EQ(state.selection.msg_Typ, kind) << status;
        ASSERT_EQ(window.combo_type.indexOfSelectedItem(), kind == 63 ? -1 : kind) << status;
        ASSERT_EQ(itemsOf(window.combo_cc), listOfKind(kind)) << status;
        ASSERT_EQ(window.combo_cc.indexOfSelectedItem(), 33) << status;
        ASSERT_EQ(window.combo_trig.indexOfSelectedItem(), (status >> 6) & 1) << status;
    }
}

TEST_F(ShowingAControl, PitchBendIsShownAsControlChange) {
    editor.statusOf(0, 60) = 0x0E;
    editor.click(60);
    EXPECT_EQ(itemsOf(window.combo_type).at(1), "CC");
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
}

TEST_F(ShowingAControl, HuiModeShowsEveryKindAsControlChangeWithoutValues) {
    editor.chooseMode(5);
    for (const int status : {0x09, 0x0B, 0x0C, 0x0E, 0x08}) {
        editor.statusOf(0, 8) = static_cast<std::uint8_t>(status);
        controller.dataChgCore(8);
        EXPECT_EQ(state.selection.msg_Typ, 1);
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
        EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), editor.channelOf(0, 8));
    }
}

TEST_F(ShowingAControl, TheValueListAsksTheModeBoxWhileTheValueAsksTheMode) {
    editor.numberOf(0, 8) = 33;
    state.modes.machn_mod = 5;
    controller.dataChgCore(8);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
}

TEST_F(ShowingAControl, AnAllChoiceIsShownForControlsBelow48InUserDefinedMode) {
    state.layers.layrData = 1;
    for (const int control : {0, 46, 47}) {
        state.layers.bTrigAll.set(1, true);
        editor.statusOf(1, control) = 0x09;
        controller.dataChgCore(control);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 2);
        editor.statusOf(1, control) = 0x49;
        controller.dataChgCore(control);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 3);
        state.layers.bTrigAll.set(1, false);
        controller.dataChgCore(control);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    }
}

TEST_F(ShowingAControl, AnAllChoiceCountsForItsLayerOnly) {
    state.layers.bTrigAll.set(1, true);
    state.layers.layrData = 2;
    editor.statusOf(2, 3) = 0x49;
    controller.dataChgCore(3);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
}

TEST_F(ShowingAControl, AnAllChoiceIsNotShownFrom48On) {
    state.layers.bTrigAll.set(0, true);
    for (const int control : {48, 64, 70}) {
        editor.statusOf(0, control) = 0x49;
        controller.dataChgCore(control);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    }
}

TEST_F(ShowingAControl, AnAllChoiceIsNotShownInAHostsMode) {
    editor.chooseMode(1);
    state.layers.bTrigAll.set(0, true);
    editor.statusOf(0, 3) = 0x49;
    controller.dataChgCore(3);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
}

TEST_F(ShowingAControl, NoControlLeavesBlanksAndAValueListWithoutSelection) {
    controller.dataChgCore(127);
    EXPECT_EQ(itemsOf(window.combo_type), withBlank(itemsOf(data::msgTyp())));
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 3);
    EXPECT_EQ(itemsOf(window.combo_chan), withBlank(itemsOf(data::Chan())));
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 16);
    EXPECT_EQ(itemsOf(window.combo_trig), withBlank(itemsOf(data::TrigMod())));
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 4);
    EXPECT_EQ(window.combo_cc.numberOfItems(), 128);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
}

TEST_F(ShowingAControl, NoControlIsJudgedByTheBytes127PlacesOn) {
    state.layers.layrData = 1;
    state.sysData.at(position(1, 167 + 127)) = 0x0B;
    controller.dataChgCore(127);
    EXPECT_EQ(state.selection.msg_Typ, 1);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::CC()));
}

TEST_F(ShowingAControl, NoControlInTheLastLayerReadsZeroBehindTheImage) {
    state.layers.layrData = 3;
    state.sysData.fill(0x09);
    controller.dataChgCore(127);
    EXPECT_EQ(state.selection.msg_Typ, 63);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Prog()));
}

TEST_F(ShowingAControl, NothingIsWritten) {
    const config::Image before = state.sysData;
    for (int control = 0; control <= 73; ++control) {
        editor.click(control);
    }
    controller.dataChgCore(127);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);
}

// While the pad editor is open.

class BesideThePadEditor : public UserDefinedTest {
protected:
    BesideThePadEditor() { state.pads.pad_modal = 1; }
};

TEST_F(BesideThePadEditor, AControlIsSelectedWithoutItsAssignment) {
    state.selection.msg_Typ = 2;
    window.combo_trig.setEnabled(true);
    controller.dataChgCore(50);
    EXPECT_EQ(state.selection.keyEvnt, 50);
    EXPECT_EQ(state.selection.keyEvnt_bak, 50);
    EXPECT_THAT(editor.litControls(), ElementsAre(50));
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
    EXPECT_EQ(itemsOf(window.combo_type), withBlank(itemsOf(data::msgTyp())));
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 3);
    EXPECT_EQ(itemsOf(window.combo_chan), withBlank(itemsOf(data::Chan())));
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 16);
    EXPECT_EQ(itemsOf(window.combo_trig), withBlank(itemsOf(data::TrigMod())));
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 4);
    // Everything behind this step is left out.
    EXPECT_EQ(state.selection.msg_Typ, 2);
    EXPECT_TRUE(window.combo_trig.isEnabled());
    EXPECT_EQ(state.selection.key_sel[0], 0);
}

TEST_F(BesideThePadEditor, TheChannelBoxIsAskedAtTheTriggerBoxesLastPosition) {
    // Position 3, then 4, of the channel box: "4" and "5" are no blanks, so each call appends one.
    controller.dataChgCore(1);
    controller.dataChgCore(2);
    controller.dataChgCore(3);
    EXPECT_EQ(blanksIn(window.combo_chan), 3);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 18);
}

TEST_F(BesideThePadEditor, ABlankAtTheBorrowedPositionIsEnoughWhateverStandsLast) {
    window.combo_chan.removeAllItems();
    for (const std::string_view item : {"1", "2", "3"}) {
        window.combo_chan.addItemWithObjectValue(item);
    }
    window.combo_chan.addItemWithObjectValue(toolkit::blankEntry);
    window.combo_chan.addItemWithObjectValue("5");
    controller.dataChgCore(1);
    EXPECT_THAT(itemsOf(window.combo_chan), ElementsAre("1", "2", "3", "<blank>", "5"));
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 4);
}

TEST_F(BesideThePadEditor, TheTypeBoxIsAskedAtTheTriggerBoxesLastPosition) {
    controller.rmTypSel();  // its blank stands at 3, where the trigger box ends
    controller.dataChgCore(1);
    EXPECT_EQ(blanksIn(window.combo_type), 1);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 3);
}

TEST_F(BesideThePadEditor, ABorrowedPositionBehindTheEndHoldsNoBlank) {
    controller.rmTypSel();
    controller.rmTrigSel();  // the trigger box now ends at 4, behind the type box's end
    controller.dataChgCore(1);
    EXPECT_EQ(blanksIn(window.combo_type), 2);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 4);
    controller.dataChgCore(2);  // from here on a blank stands at 4
    EXPECT_EQ(blanksIn(window.combo_type), 2);
}

TEST_F(BesideThePadEditor, TheTriggerBoxIsAskedAtItsOwnEnd) {
    controller.dataChgCore(1);
    controller.dataChgCore(2);
    controller.dataChgCore(3);
    EXPECT_EQ(blanksIn(window.combo_trig), 1);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 4);
}

}  // namespace
}  // namespace editor
