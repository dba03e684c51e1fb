#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"

namespace editor {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Mode layers in User Defined mode.

using ModeLayer = UserDefinedTest;

TEST_F(ModeLayer, AClickShowsItsBlockAndLightsItsButtonAlone) {
    for (const int layer : {1, 2, 3, 0}) {
        editor.channelOf(layer, 0) = static_cast<std::uint8_t>(10 + layer);
        editor.clickModeLayer(layer);
        EXPECT_EQ(state.layers.m_moLa, layer);
        EXPECT_EQ(state.layers.layrData, layer);
        EXPECT_THAT(editor.litModeLayers(), ElementsAre(layer));
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 10 + layer);
    }
}

TEST_F(ModeLayer, ASecondClickKeepsItLitAndShowsTheSameBlock) {
    editor.channelOf(2, 0) = 6;
    for (int i = 0; i < 2; ++i) {
        editor.clickModeLayer(2);
        EXPECT_EQ(state.layers.layrData, 2);
        EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 6);
        EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
    }
    // A button that a click would put out is lit again, too.
    window.moLaCtrls[2].setState(0);
    controller.moLa(2);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
}

TEST_F(ModeLayer, TheClickLightsItsButtonBeforeTheActionPutsTheOldOneOut) {
    std::vector<std::string> changes;
    for (const std::size_t layer : {0U, 2U}) {
        toolkit::Button& button = window.moLaCtrls.at(layer);
        button.onChange = [&changes, &button, layer] {
            changes.push_back(std::to_string(layer) + (button.state() != 0 ? " on" : " off"));
        };
    }
    editor.clickModeLayer(2);
    EXPECT_THAT(changes, ElementsAre("2 on", "0 off"));
}

TEST_F(ModeLayer, EachLayerComesBackWithItsOwnLastControl) {
    editor.click(17);
    editor.clickModeLayer(1);
    EXPECT_EQ(state.selection.keyEvnt, 0);  // nothing was selected there yet
    editor.click(50);
    editor.clickModeLayer(0);
    EXPECT_EQ(state.selection.keyEvnt, 17);
    EXPECT_THAT(editor.litControls(), ElementsAre(17));
    editor.clickModeLayer(1);
    EXPECT_EQ(state.selection.keyEvnt, 50);
    EXPECT_THAT(editor.litControls(), ElementsAre(50));
}

TEST_F(ModeLayer, APadIsLeftForTheLayersOwnControl) {
    editor.click(12);
    editor.click(70);
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    editor.clickModeLayer(0);
    EXPECT_EQ(state.selection.keyEvnt, 12);
    EXPECT_THAT(editor.litControls(), ElementsAre(12));
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0));
}

TEST_F(ModeLayer, ASelectedPadIsPutOutWhicheverControlWasHighlighted) {
    // The highlighted control and the edited one may differ for a moment: the pad's light goes.
    controller.keepBnSel(66);
    state.selection.keyEvnt = 66;
    state.selection.keyEvnt_bak = 3;
    controller.moLa(1);
    EXPECT_EQ(window.keysOrderedByTag[69].state(), 0);
}

TEST_F(ModeLayer, TheLockButtonShowsTheLayersOwnLock) {
    editor.byte(1, 250) = 0;
    editor.byte(2, 250) = 9;
    editor.clickModeLayer(1);
    EXPECT_EQ(window.locker.state(), 0);
    editor.clickModeLayer(2);
    EXPECT_EQ(window.locker.state(), 1);
    editor.clickModeLayer(1);
    EXPECT_EQ(window.locker.state(), 0);
}

TEST_F(ModeLayer, NothingIsWritten) {
    const config::Image before = state.sysData;
    for (const int layer : {3, 1, 1, 0, 2}) {
        editor.clickModeLayer(layer);
    }
    EXPECT_EQ(state.sysData, before);
}

TEST_F(ModeLayer, WithNoneCurrentNoLightIsTouchedButTheClickedOnes) {
    window.moLaCtrls[0].setState(1);
    state.layers.m_moLa = 255;
    editor.clickModeLayer(3);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0, 3));
    EXPECT_EQ(state.layers.m_moLa, 3);
}

TEST_F(ModeLayer, LightsFollowTheirOperations) {
    controller.off_MoLa();
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    controller.on_MoLa(3);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(3));
    controller.on_MoLa(255);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(3));
    state.layers.m_moLa = 255;
    controller.off_MoLa();
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(3));
    state.layers.m_moLa = 3;
    controller.off_MoLa();
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
}

TEST_F(ModeLayer, TheLayersAreStoredAsGiven) {
    controller.set_MoLa(2);
    controller.set_PaLa(3);
    EXPECT_EQ(state.layers.m_moLa, 2);
    EXPECT_EQ(state.layers.m_paLa, 3);
    controller.set_MoLa(255);
    controller.set_PaLa(255);
    EXPECT_EQ(state.layers.m_moLa, 255);
    EXPECT_EQ(state.layers.m_paLa, 255);
}

TEST_F(ModeLayer, ANumberThatIsNoLayerDoesNothing) {
    editor.click(20);
    for (const int layer : {-1, 4, 255}) {
        controller.moLa(layer);
        controller.on_MoLa(layer);
        controller.paLa_Post(layer);
        controller.paLa234(layer);
    }
    controller.paLa234(0);
    EXPECT_EQ(state.layers.m_moLa, 0);
    EXPECT_EQ(state.layers.m_paLa, 0);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(0));
    EXPECT_THAT(editor.litPadLayers(), IsEmpty());
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

// Mode layers in a host's mode.

using ModeLayerOfAHost = EditorTest;

TEST_F(ModeLayerOfAHost, TheLayerKeyItselfIsShown) {
    editor.click(10);
    editor.numberOf(0, 34) = 99;
    editor.clickModeLayer(2);
    EXPECT_EQ(state.selection.keyEvnt, 34);
    EXPECT_EQ(state.selection.keyEvnt_bak, 34);
    EXPECT_EQ(state.layers.m_moLa, 2);
    EXPECT_EQ(state.layers.layrData, 0);  // the block stays
    EXPECT_THAT(editor.litControls(), ElementsAre(34));
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 99);
}

TEST_F(ModeLayerOfAHost, AnotherLayerTakesTheLightOver) {
    editor.clickModeLayer(2);
    editor.clickModeLayer(1);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(1));
    EXPECT_THAT(editor.litControls(), ElementsAre(33));
    editor.clickModeLayer(1);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(1));
}

TEST_F(ModeLayerOfAHost, AnOrdinaryControlPutsItOut) {
    editor.clickModeLayer(2);
    editor.click(8);
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_EQ(state.layers.m_moLa, 2);
}

TEST_F(ModeLayerOfAHost, TheLockButtonIsLeftAlone) {
    editor.byte(1, 250) = 0;
    editor.clickModeLayer(1);
    EXPECT_EQ(window.locker.state(), 1);
}

// The first pad layer.

using FirstPadLayer = UserDefinedTest;

TEST_F(FirstPadLayer, ItShowsTheFirstBlockInTheMainWindow) {
    editor.clickModeLayer(2);
    editor.click(20);
    editor.channelOf(0, 20) = 13;
    editor.clickPadLayer(0);
    EXPECT_EQ(state.layers.layrData, 0);
    EXPECT_EQ(state.layers.m_paLa, 0);
    EXPECT_EQ(state.layers.m_moLa, 2);
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 13);
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0));
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
    EXPECT_THAT(desktop.journal(), IsEmpty());
}

TEST_F(FirstPadLayer, WithNothingSelectedTheControlBeforeComesBack) {
    state.selection.keyEvnt = 127;
    state.selection.keyEvnt_bak = 41;
    editor.clickPadLayer(0);
    EXPECT_EQ(state.selection.keyEvnt, 41);
    EXPECT_THAT(editor.litControls().count(41), 1U);
}

TEST_F(FirstPadLayer, WithNothingAtAllItStaysSo) {
    editor.chooseMode(3);
    editor.clickPadLayer(0);
    EXPECT_EQ(state.selection.keyEvnt, 127);
    EXPECT_THAT(editor.litControls(), IsEmpty());
}

// The lock.

using Lock = UserDefinedTest;

TEST_F(Lock, AClickFlipsTheFlagInAllFourBlocksAndShowsIt) {
    window.locker.click();
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_EQ(editor.byte(layer, 250), 0);
    }
    EXPECT_EQ(window.locker.state(), 0);
    window.locker.click();
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_EQ(editor.byte(layer, 250), 1);
    }
    EXPECT_EQ(window.locker.state(), 1);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(Lock, DifferingFlagsAllBecomeTheInverseOfTheFirst) {
    editor.byte(0, 250) = 0;
    editor.byte(1, 250) = 1;
    editor.byte(2, 250) = 0;
    editor.byte(3, 250) = 7;
    window.locker.setState(1);  // out of step: the flag decides
    window.locker.click();
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_EQ(editor.byte(layer, 250), 1);
    }
    EXPECT_EQ(window.locker.state(), 1);

    editor.byte(0, 250) = 5;
    window.locker.click();
    for (int layer = 0; layer < 4; ++layer) {
        EXPECT_EQ(editor.byte(layer, 250), 0);
    }
    EXPECT_EQ(window.locker.state(), 0);
}

TEST_F(Lock, ItChangesNothingElse) {
    config::Image expected = state.sysData;
    for (int layer = 0; layer < 4; ++layer) {
        expected.at(position(layer, 250)) = 0;
    }
    window.locker.click();
    EXPECT_EQ(state.sysData, expected);
    // The lock is a setting for the controller, not for the editor.
    window.combo_chan.choose(5);
    EXPECT_EQ(editor.channelOf(0, 0), 5);
}

TEST_F(Lock, TheCurrentModeLayersFlagIsShown) {
    editor.byte(3, 250) = 0;
    state.layers.m_moLa = 3;
    controller.lockCheck();
    EXPECT_EQ(window.locker.state(), 0);
    editor.byte(3, 250) = 2;
    controller.lockCheck();
    EXPECT_EQ(window.locker.state(), 1);
}

TEST_F(Lock, WithoutACurrentModeLayerNoneIsShown) {
    state.layers.m_moLa = 255;
    controller.lockCheck();
    EXPECT_EQ(window.locker.state(), 0);
}

}  // namespace
}  // namespace editor
