#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;
using testing::IsEmpty;

// Opening and closing the pad editor.

using OpeningThePadEditor = UserDefinedTest;

TEST_F(OpeningThePadEditor, TheOtherPadLayersOpenItWithTheFirstButtonDisabled) {
    for (const int layer : {1, 2, 3}) {
        editor.usePadEditor(layer, [&](pad& padEditor) {
            EXPECT_FALSE(window.paLaCtrls[0].isEnabled());
            EXPECT_TRUE(padEditor.window().isVisible());
            EXPECT_FALSE(window.window.isVisible());
            EXPECT_EQ(state.pads.pad_modal, 1);
            EXPECT_EQ(state.layers.layrData, layer);
            EXPECT_EQ(state.layers.m_paLa, layer);
            EXPECT_EQ(state.pads.m_zPaLayer_CurSel, layer);
            EXPECT_THAT(editor.litPadLayers(), ElementsAre(layer));
        });
        EXPECT_TRUE(window.paLaCtrls[0].isEnabled());
    }
}

TEST_F(OpeningThePadEditor, ItsWorkingCopyHoldsTheThreeBlocksOfTheImage) {
    for (std::size_t i = 0; i < state.sysData.size(); ++i) {
        state.sysData.at(i) = static_cast<std::uint8_t>(i * 7 % 127);
    }
    state.sysData[248] = 0;
    state.pads.sysbuf_domal.fill(0x55);
    editor.usePadEditor(2, [&](pad&) {
        for (std::size_t i = 0; i < 254; ++i) {
            ASSERT_EQ(state.pads.sysbuf_domal.at(i), 0x55) << i;
        }
        for (std::size_t i = 254; i < 1016; ++i) {
            ASSERT_EQ(state.pads.sysbuf_domal.at(i), state.sysData.at(i)) << i;
        }
    });
}

TEST_F(OpeningThePadEditor, WithNothingSelectedTheControlBeforeComesBack) {
    state.selection.keyEvnt = 127;
    state.selection.keyEvnt_bak = 41;
    editor.usePadEditor(1, [&](pad&) { EXPECT_EQ(state.selection.keyEvnt, 41); });
    EXPECT_EQ(state.selection.keyEvnt, 41);
}

TEST_F(OpeningThePadEditor, WithNothingAtAllItStaysSo) {
    editor.chooseMode(3);
    editor.usePadEditor(1, [&](pad&) { EXPECT_EQ(state.selection.keyEvnt, 127); });
    EXPECT_EQ(state.selection.keyEvnt, 127);
    EXPECT_THAT(editor.litControls(), IsEmpty());
}

TEST_F(OpeningThePadEditor, ALitPadLayerGoesOutUnlessItIsTheClickedOne) {
    editor.clickPadLayer(0);
    editor.usePadEditor(3, [&](pad&) { EXPECT_THAT(editor.litPadLayers(), ElementsAre(3)); });
    state.layers.m_paLa = 2;
    window.paLaCtrls[0].setState(0);
    window.paLaCtrls[2].setState(1);
    editor.usePadEditor(2, [&](pad&) { EXPECT_THAT(editor.litPadLayers(), ElementsAre(2)); });
}

using ClosingThePadEditor = UserDefinedTest;

TEST_F(ClosingThePadEditor, TheFirstPadLayerIsLitAndTheModeLayersBlockShown) {
    editor.clickModeLayer(2);
    editor.click(20);
    editor.channelOf(2, 20) = 13;
    editor.usePadEditor(3, [](pad&) {});
    EXPECT_EQ(state.pads.pad_modal, 0);
    EXPECT_EQ(state.layers.m_paLa, 0);
    EXPECT_EQ(state.layers.layrData, 2);
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0));
    EXPECT_EQ(state.selection.keyEvnt, 20);
    EXPECT_THAT(editor.litControls(), ElementsAre(20));
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 13);
}

TEST_F(ClosingThePadEditor, TheMainWindowComesToTheFront) {
    int fronts = 0;
    window.window.onChange = [&](toolkit::Window::Change change) {
        fronts += change == toolkit::Window::Change::Front ? 1 : 0;
    };
    editor.usePadEditor(1, [](pad&) {});
    EXPECT_TRUE(window.window.isVisible());
    EXPECT_EQ(fronts, 1);
}

TEST_F(ClosingThePadEditor, ByItsCloseBoxItTakesTheEditsToo) {
    desktop.onModal<pad>([&](pad& padEditor) {
        editor.copied(1, 249) = 33;
        padEditor.window().close();
    });
    editor.clickPadLayer(1);
    EXPECT_EQ(editor.byte(1, 249), 33);
    EXPECT_EQ(state.pads.pad_modal, 0);
}

TEST_F(ClosingThePadEditor, Bytes7To249OfBlocks1To3AreTakenFromTheWorkingCopy) {
    const config::Image before = state.sysData;
    editor.usePadEditor(1, [&](pad&) { state.pads.sysbuf_domal.fill(0x31); });
    for (int layer = 0; layer < 4; ++layer) {
        for (int offset = 0; offset < 254; ++offset) {
            const bool taken = layer > 0 && offset >= 7 && offset <= 249;
            const int expected = taken ? 0x31 : before.at(position(layer, offset));
            ASSERT_EQ(editor.byte(layer, offset), expected) << layer << ' ' << offset;
        }
    }
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(ClosingThePadEditor, APadChosenThereIsShownInTheMainWindowFromTheFirstBlock) {
    editor.clickModeLayer(3);
    editor.channelOf(0, 70) = 2;
    editor.numberOf(0, 70) = 61;
    editor.usePadEditor(2, [](pad& padEditor) { padEditor.m_pads[0].click(); });
    EXPECT_EQ(state.selection.keyEvnt, 70);
    EXPECT_EQ(state.selection.keyEvnt_bak, 70);
    EXPECT_EQ(state.layers.layrData, 0);
    EXPECT_THAT(editor.litControls(), ElementsAre(70));
    EXPECT_THAT(editor.litModeLayers(), IsEmpty());
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 2);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 61);
    EXPECT_FALSE(window.combo_trig.isEnabled());
}

TEST_F(ClosingThePadEditor, AnotherPadThanTheOneSelectedBeforeTakesTheLight) {
    editor.click(65);
    editor.usePadEditor(2, [](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.m_pads[1].click();
    });
    EXPECT_EQ(state.selection.keyEvnt, 69);
    EXPECT_THAT(editor.litControls(), ElementsAre(69));
}

TEST_F(ClosingThePadEditor, AnOrdinaryControlIsShownAfreshFromItsOwnLayer) {
    editor.clickModeLayer(1);
    editor.click(20);
    editor.usePadEditor(2, [&](pad&) {
        editor.copied(1, 7 + 20) = 12;
        editor.copied(1, 87 + 20) = 77;
        editor.copied(1, 167 + 20) = 0x4C;
    });
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 12);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 77);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 2);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Prog()));
    EXPECT_EQ(window.combo_trig.indexOfSelectedItem(), 1);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(1));
}

TEST_F(ClosingThePadEditor, TheLockButtonShowsTheFirstBlocksLock) {
    editor.byte(0, 250) = 0;
    editor.byte(2, 250) = 1;
    window.locker.setState(1);
    editor.usePadEditor(2, [](pad&) {});
    EXPECT_EQ(window.locker.state(), 0);
}

TEST_F(ClosingThePadEditor, TheNextOrdinaryControlIsShownFromTheFirstBlockAfterAPad) {
    editor.clickModeLayer(2);
    editor.click(70);
    EXPECT_EQ(state.layers.layrData, 0);
    editor.channelOf(0, 10) = 4;
    editor.channelOf(2, 10) = 9;
    editor.click(10);
    EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
    EXPECT_EQ(state.layers.layrData, 0);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 4);
}

TEST_F(ClosingThePadEditor, WithoutACurrentModeLayerNoBlockIsShownOrWritten) {
    state.layers.m_moLa = 255;
    editor.usePadEditor(1, [](pad&) {});
    EXPECT_EQ(state.layers.layrData, 255);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 0);
    const config::Image before = state.sysData;
    for (const int choice : {1, 2, 3, 0}) {
        window.combo_trig.choose(choice);
    }
    window.combo_chan.choose(5);
    EXPECT_EQ(state.sysData, before);
}

// A pad editor that could not be shown.

using RefusedPadEditor = UserDefinedTest;

TEST_F(RefusedPadEditor, NothingIsTakenBackAndTheLayerStays) {
    const config::Image before = state.sysData;
    desktop.refuseModal<pad>();
    editor.clickPadLayer(2);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.layers.layrData, 2);
    EXPECT_EQ(state.layers.m_paLa, 2);
    EXPECT_EQ(state.pads.pad_modal, 0);
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(2));
    EXPECT_TRUE(window.paLaCtrls[0].isEnabled());
    EXPECT_TRUE(window.window.isVisible());
}

TEST_F(RefusedPadEditor, WhatTheBoxesShowIsWhatAChoiceWouldChange) {
    editor.click(20);
    editor.channelOf(2, 20) = 12;
    desktop.refuseModal<pad>();
    editor.clickPadLayer(2);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 12);
    window.combo_chan.choose(3);
    EXPECT_EQ(editor.channelOf(2, 20), 3);
}

TEST_F(RefusedPadEditor, TheStateStaysAsThePadEditorLeftIt) {
    const config::Image before = state.sysData;
    desktop.failModal([&](toolkit::WindowController&) {
        state.pads.sysbuf_domal.fill(0x31);
        state.pads.m_pad_CurSel = 66;
        state.pads.m_zPaLayer_CurSel = 3;
    });
    editor.clickPadLayer(2);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.pads.pad_modal, 1);
    EXPECT_EQ(state.layers.m_paLa, 2);
    EXPECT_EQ(state.layers.layrData, 2);
    EXPECT_EQ(state.selection.keyEvnt, 0);
    EXPECT_EQ(state.pads.m_pad_CurSel, 66);
    EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 3);
}

// The parts of it.

using PadLayerParts = UserDefinedTest;

TEST_F(PadLayerParts, TheWorkingCopyIsPrepared) {
    state.layers.m_paLa = 3;
    state.pads.pad_modal = 1;
    state.pads.sysbuf_domal.fill(0x55);
    controller.pad234();
    EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 3);
    EXPECT_EQ(state.pads.m_zPaLayer_FirSel, 3);
    EXPECT_EQ(state.pads.pad_modal, 0);
    EXPECT_EQ(state.pads.sysbuf_domal[253], 0x55);
    EXPECT_EQ(state.pads.sysbuf_domal[254], 0xF0);
    EXPECT_EQ(state.pads.sysbuf_domal[1015], 0xF7);
    EXPECT_EQ(state.pads.sysbuf_domal[1016], 0x55);
    EXPECT_TRUE(std::equal(state.sysData.begin() + 254, state.sysData.begin() + 1016,
                           state.pads.sysbuf_domal.begin() + 254));
}

TEST_F(PadLayerParts, PadLayerLightsFollowTheirOperations) {
    for (toolkit::Button& button : window.paLaCtrls) {
        button.setState(1);
    }
    state.layers.m_paLa = 2;
    controller.paLa_Pre();
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0, 1, 3));
    state.layers.m_paLa = 255;
    controller.paLa_Pre();
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0, 1, 3));
    controller.paLa_Post(2);
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0, 1, 2, 3));
    controller.paLa_Post(255);
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0, 1, 2, 3));
}

}  // namespace
}  // namespace editor
