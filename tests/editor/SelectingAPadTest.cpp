#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;
using testing::IsEmpty;

using SelectingAPad = UserDefinedTest;

TEST_F(SelectingAPad, ItPutsTheModeLayerOut) {
    editor.clickModeLayer(1);
    editor.click(70);
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_EQ(state.layers.m_moLa, 1);
}

TEST_F(SelectingAPad, OnTheFirstPadLayerItIsShownLikeAnyControl) {
    editor.clickModeLayer(3);
    editor.numberOf(0, 71) = 90;
    editor.channelOf(0, 71) = 8;
    editor.statusOf(0, 71) = 0x4B;
    editor.click(71);
    EXPECT_EQ(state.selection.keyEvnt, 71);
    EXPECT_EQ(state.selection.keyEvnt_bak, 71);
    EXPECT_EQ(state.layers.layrData, 0);
    EXPECT_THAT(editor.litControls(), ElementsAre(71));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 90);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::CC()));
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 8);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

TEST_F(SelectingAPad, OnAnotherPadLayerItsBlockIsShownAndTheWorkingCopyRenewed) {
    for (const int padLayer : {1, 2, 3}) {
        state.layers.m_paLa = padLayer;
        state.pads.pad_modal = 0;
        state.pads.sysbuf_domal.fill(0);
        editor.numberOf(padLayer, 70) = static_cast<std::uint8_t>(80 + padLayer);
        editor.channelOf(padLayer, 70) = static_cast<std::uint8_t>(padLayer);
        editor.statusOf(padLayer, 70) = 0x19;
        controller.dataChgCore_pad(70);
        EXPECT_EQ(state.selection.keyEvnt, 70);
        EXPECT_EQ(state.layers.layrData, padLayer);
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 80 + padLayer);
        EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), padLayer);
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 0);
        EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 0);
        EXPECT_EQ(blanksIn(window.combo_type), 1);
        EXPECT_EQ(blanksIn(window.combo_chan), 1);
        EXPECT_EQ(blanksIn(window.combo_trig), 1);
        EXPECT_EQ(window.keysOrderedByTag[65].state(), 1);
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, padLayer);
        EXPECT_EQ(state.pads.m_zPaLayer_FirSel, padLayer);
        EXPECT_EQ(editor.copied(padLayer, 87 + 70), 80 + padLayer);
    }
}

TEST_F(SelectingAPad, OnAnotherPadLayerTheControlBeforeStaysRemembered) {
    editor.click(20);
    state.layers.m_paLa = 1;
    controller.dataChgCore_pad(70);
    EXPECT_EQ(state.selection.keyEvnt, 70);
    EXPECT_EQ(state.selection.keyEvnt_bak, 20);
    EXPECT_THAT(editor.litControls(), ElementsAre(70));
}

TEST_F(SelectingAPad, WhileThePadEditorIsOpenItsWorkingCopyIsLeftAlone) {
    state.layers.m_paLa = 2;
    state.pads.pad_modal = 1;
    state.pads.sysbuf_domal.fill(0x55);
    controller.dataChgCore_pad(70);
    EXPECT_EQ(state.pads.pad_modal, 1);
    EXPECT_EQ(editor.copied(2, 100), 0x55);
}

TEST_F(SelectingAPad, ThePadLayersBlockIsReadWhateverBlockIsEdited) {
    editor.clickModeLayer(1);
    state.layers.m_paLa = 2;
    editor.statusOf(2, 10) = 0x0C;
    editor.numberOf(2, 10) = 55;
    editor.channelOf(2, 10) = 14;
    controller.dataChgCore_pad(10);
    EXPECT_EQ(state.layers.layrData, 1);  // only a pad takes the block along
    EXPECT_EQ(state.selection.msg_Typ, 2);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Prog()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 55);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 14);
}

TEST_F(SelectingAPad, TheTriggerBoxIsEnabledForOrdinaryControlsInUserDefinedMode) {
    for (const int control : {0, 47, 48, 64, 65, 73, 127}) {
        controller.dataChgCore_pad(control);
        EXPECT_EQ(window.combo_trig.isEnabled(), control < 48 || control > 73) << control;
    }
    editor.chooseMode(1);
    for (const int control : {0, 47, 48, 73, 127}) {
        window.combo_trig.setEnabled(true);
        controller.dataChgCore_pad(control);
        EXPECT_FALSE(window.combo_trig.isEnabled()) << control;
    }
}

TEST_F(SelectingAPad, TheKindIsJudgedAsForAnyControl) {
    for (int status = 0; status < 16; ++status) {
        editor.statusOf(0, 66) = static_cast<std::uint8_t>(status);
        controller.dataChgCore_pad(66);
        const int kind = status == 9 ? 0 : status == 11 || status == 14 ? 1 : status == 12 ? 2 : 63;
        EXPECT_EQ(state.selection.msg_Typ, kind) << status;
    }
}

TEST_F(SelectingAPad, AnUnknownKindGetsTheNotesHereAndTheProgramsElsewhere) {
    editor.statusOf(0, 66) = 0x08;
    controller.dataChgCore_pad(66);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), -1);
    controller.dataChgCore(66);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Prog()));
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), -1);
}

TEST_F(SelectingAPad, AnUnknownKindKeepsTheNotesWhenThePadEditorCloses) {
    editor.statusOf(0, 66) = 0x08;
    editor.click(66);
    editor.usePadEditor(1, [](pad&) {});
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
}

TEST_F(SelectingAPad, HuiModeOffersNoValues) {
    editor.chooseMode(5);
    editor.click(66);
    EXPECT_EQ(state.selection.msg_Typ, 1);
    EXPECT_EQ(window.combo_cc.numberOfItems(), 0);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
}

TEST_F(SelectingAPad, NoControlLeavesABlankInAllFourBoxes) {
    for (const int padLayer : {0, 1}) {
        state.layers.m_paLa = padLayer;
        controller.dataChgCore_pad(127);
        EXPECT_EQ(state.selection.keyEvnt, 127);
        EXPECT_TRUE(showsBlank(window.combo_type));
        EXPECT_TRUE(showsBlank(window.combo_chan));
        EXPECT_TRUE(showsBlank(window.combo_trig));
        EXPECT_TRUE(showsBlank(window.combo_cc));
    }
    EXPECT_EQ(state.selection.keyEvnt_bak, 127);
}

TEST_F(SelectingAPad, WithoutACurrentPadLayerZerosAreShownAndNothingIsWritten) {
    const config::Image before = state.sysData;
    state.layers.m_paLa = 255;
    controller.dataChgCore_pad(10);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 0);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 0);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 0);
    EXPECT_EQ(state.selection.msg_Typ, 63);
    controller.dataChgCore_pad(70);
    EXPECT_EQ(state.layers.layrData, 255);
    window.combo_chan.choose(5);
    window.combo_cc.choose(5);
    window.combo_type.choose(1);
    EXPECT_EQ(state.sysData, before);
}

TEST_F(SelectingAPad, NoControlInTheLastLayerReadsZeroBehindTheImage) {
    state.layers.m_paLa = 3;
    state.sysData.fill(0x0B);
    controller.dataChgCore_pad(127);
    EXPECT_EQ(state.selection.msg_Typ, 63);
    EXPECT_EQ(itemsOf(window.combo_cc), withBlank(itemsOf(data::Note())));
}

TEST_F(SelectingAPad, AnAllChoiceOfThePadLayerIsShownForControlsBelow48) {
    state.layers.m_paLa = 2;
    state.layers.bTrigAll.set(2, true);
    editor.statusOf(2, 47) = 0x49;
    editor.statusOf(2, 48) = 0x49;
    controller.dataChgCore_pad(47);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 3);
    controller.dataChgCore_pad(48);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    editor.statusOf(2, 47) = 0x09;
    controller.dataChgCore_pad(47);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 2);
    state.modes.machn_mod = 1;
    controller.dataChgCore_pad(47);
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 0);
}

}  // namespace
}  // namespace editor
