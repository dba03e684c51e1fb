#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/PadEditorTest.h"
#include "tables/data.h"

namespace editor {
namespace {

namespace journal = support::journal;
using tables::data;
using testing::ElementsAre;
using testing::IsEmpty;

using PadEditor = PadEditorTest;

// Waking.

TEST_F(PadEditor, OpensWithItsBoxesFilled) {
    use(1, [&](pad& padEditor) {
        EXPECT_EQ(itemsOf(padEditor.combo_chan), itemsOf(data::Chan()));
        EXPECT_EQ(itemsOf(padEditor.combo_chanMod), itemsOf(data::ChanMod()));
        EXPECT_EQ(itemsOf(padEditor.combo_msg), itemsOf(data::Note()));
        EXPECT_EQ(itemsOf(padEditor.combo_intervl), itemsOf(data::ms()));
        EXPECT_EQ(itemsOf(padEditor.combo_curv), itemsOf(data::curv()));
        // A curve is set: the constant velocity shows its blank.
        EXPECT_EQ(itemsOf(padEditor.combo_curConst), withBlank(itemsOf(data::curv5_vel())));
    });
}

TEST_F(PadEditor, OpensInPlaceOfTheMainWindow) {
    window.window.makeKeyAndOrderFront();
    use(2, [&](pad& padEditor) {
        EXPECT_EQ(state.pads.pad_modal, 1);
        EXPECT_EQ(state.pads.isInit2, 1);
        EXPECT_FALSE(window.window.isVisible());
        EXPECT_TRUE(padEditor.window().isVisible());
    });
}

TEST_F(PadEditor, OpensOnTheLayersSettings) {
    editor.byte(2, 249) = 77;
    editor.byte(2, 247) = 3;
    state.pads.abChAll.set(2, true);
    use(2, [&](pad& padEditor) {
        EXPECT_EQ(padEditor.combo_intervl.indexOfSelectedItem(), 52);
        EXPECT_EQ(padEditor.combo_curv.indexOfSelectedItem(), 3);
        EXPECT_EQ(padEditor.combo_chanMod.indexOfSelectedItem(), 1);
        EXPECT_EQ(padEditor.tx_Non.stringValue(), "None");
        EXPECT_FALSE(padEditor.combo_curConst.isEnabled());
        EXPECT_TRUE(showsBlank(padEditor.combo_curConst));
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 108);
        EXPECT_EQ(litLayers(padEditor), std::set<int>{2});
    });
}

TEST_F(PadEditor, OpensWithAConstantVelocityShown) {
    editor.byte(1, 247) = 0x54;
    use(1, [&](pad& padEditor) {
        EXPECT_EQ(padEditor.combo_curv.indexOfSelectedItem(), 5);
        EXPECT_TRUE(padEditor.combo_curConst.isEnabled());
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 64);
        EXPECT_EQ(itemsOf(padEditor.combo_curConst).at(64), "84");
        EXPECT_EQ(padEditor.tx_Non.stringValue(), "Const");
        EXPECT_EQ(blanksIn(padEditor.combo_curConst), 0);
    });
}

TEST_F(PadEditor, EveryCurveByteIsShownWithoutRunningOut) {
    for (int byte = 0; byte < 256; ++byte) {
        editor.byte(1, 247) = static_cast<std::uint8_t>(byte);
        use(1, [&](pad& padEditor) {
            const bool constant = byte > 4 && byte < 128;
            EXPECT_EQ(padEditor.combo_curConst.isEnabled(), constant);
            EXPECT_EQ(padEditor.tx_Non.stringValue(), constant ? "Const" : "None");
            EXPECT_EQ(padEditor.combo_curv.indexOfSelectedItem(), constant     ? 5
                                                                  : byte < 128 ? byte
                                                                               : -1);
            if (constant) {
                EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(),
                          byte >= 20 ? byte - 20 : -1);
            } else {
                EXPECT_TRUE(showsBlank(padEditor.combo_curConst));
            }
        });
        EXPECT_EQ(editor.byte(1, 247), byte);
    }
}

TEST_F(PadEditor, CurveBytesBelow8AreFirstShownAsTheyAre) {
    struct Case {
        int byte;
        std::vector<int> shown;
    };
    for (const Case& given :
         {Case{2, {2}}, Case{5, {5}}, Case{7, {5}}, Case{8, {5}}, Case{127, {5}}}) {
        pad padEditor(state, window, desktop);
        state.pads.m_zPaLayer_CurSel = 1;
        editor.copied(1, 247) = static_cast<std::uint8_t>(given.byte);
        std::vector<int> shown;
        padEditor.combo_curv.onChange = [&](toolkit::ComboBox::Change change) {
            if (change == toolkit::ComboBox::Change::Selection) {
                shown.push_back(padEditor.combo_curv.indexOfSelectedItem());
            }
        };
        padEditor.awakeFromNib();
        EXPECT_EQ(shown, given.shown) << given.byte;
    }
}

TEST_F(PadEditor, AnIntervalOutsideTheListLeavesNothingSelected) {
    for (const int interval : {0, 24, 101, 127, 255}) {
        editor.byte(1, 249) = static_cast<std::uint8_t>(interval);
        use(1, [&](pad& padEditor) {
            EXPECT_EQ(padEditor.combo_intervl.indexOfSelectedItem(), -1) << interval;
        });
    }
}

TEST_F(PadEditor, OpensOnThePadThatIsSelectedInTheMainWindow) {
    editor.click(70);
    editor.channelOf(3, 70) = 12;
    editor.numberOf(3, 70) = 101;
    use(3, [&](pad& padEditor) {
        EXPECT_EQ(state.pads.m_pad_CurSel, 70);
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{0});
        EXPECT_EQ(padEditor.combo_chan.indexOfSelectedItem(), 12);
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), 101);
        EXPECT_TRUE(padEditor.combo_chan.isEnabled());
        EXPECT_TRUE(padEditor.combo_msg.isEnabled());
        EXPECT_THAT(editor.litControls(), ElementsAre(70));
    });
}

TEST_F(PadEditor, OpensWithoutAPadWhereAnotherControlIsSelected) {
    editor.click(20);
    use(1, [&](pad& padEditor) {
        EXPECT_EQ(state.pads.m_pad_CurSel, 20);
        EXPECT_THAT(litOf(padEditor.m_pads), IsEmpty());
        EXPECT_EQ(padEditor.combo_chan.indexOfSelectedItem(), -1);
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), -1);
    });
    EXPECT_EQ(state.selection.keyEvnt, 20);
}

TEST_F(PadEditor, ButtonsCarryTheirTags) {
    use(1, [&](pad& padEditor) {
        EXPECT_EQ(padEditor.m_paLa1.tag(), 37);
        EXPECT_EQ(padEditor.m_paLa2.tag(), 38);
        EXPECT_EQ(padEditor.m_paLa3.tag(), 39);
        for (int i = 0; i < 9; ++i) {
            EXPECT_EQ(padEditor.m_pads.at(static_cast<std::size_t>(i)).tag(), 65 + i);
        }
    });
}

// Choosing a pad.

TEST_F(PadEditor, EveryPadButtonShowsItsPad) {
    for (int control = 65; control <= 73; ++control) {
        editor.channelOf(2, control) = static_cast<std::uint8_t>(control - 65);
        editor.numberOf(2, control) = static_cast<std::uint8_t>(control);
    }
    use(2, [&](pad& padEditor) {
        constexpr std::array<int, 9> controls = {70, 69, 72, 65, 66, 71, 73, 68, 67};
        for (std::size_t i = 0; i < 9; ++i) {
            padEditor.m_pads.at(i).click();
            const int control = controls.at(i);
            EXPECT_EQ(state.pads.m_pad_CurSel, control);
            EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{static_cast<int>(i)});
            EXPECT_EQ(padEditor.combo_chan.indexOfSelectedItem(), control - 65);
            EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), control);
            EXPECT_EQ(litOf(window.keysOrderedByTag).count(65 + static_cast<int>(i)), 1U);
            EXPECT_EQ(state.selection.keyEvnt, 0);
        }
    });
}

TEST_F(PadEditor, ASecondClickKeepsThePadLit) {
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[3].click();
        padEditor.m_pads[3].click();
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{3});
        // A button that a click would put out is lit again, too.
        padEditor.m_pads[3].setState(0);
        padEditor.selectPad(65);
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{3});
    });
}

TEST_F(PadEditor, TheMainWindowsPadLightMovesAlong) {
    editor.click(65);
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[0].click();  // 70
        EXPECT_THAT(editor.litControls(), ElementsAre(70));
        padEditor.m_pads[1].click();  // 69
        EXPECT_THAT(editor.litControls(), ElementsAre(69));
    });
}

TEST_F(PadEditor, AnotherControlsLightInTheMainWindowStaysUntilItCloses) {
    editor.click(20);
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        EXPECT_THAT(editor.litControls(), ElementsAre(20, 70));
    });
    EXPECT_THAT(editor.litControls(), ElementsAre(70));
}

TEST_F(PadEditor, ComingFromALayerKeyTheFirstPadPutsTheModeLayerOut) {
    editor.clickModeLayer(1);
    editor.click(34);
    ASSERT_THAT(editor.litModeLayers(), ElementsAre(1, 2));
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        EXPECT_THAT(editor.litModeLayers(), ElementsAre(2));
    });
}

TEST_F(PadEditor, ComingFromALayerKeyWithoutACurrentModeLayerNoLightGoes) {
    editor.click(34);
    state.layers.m_moLa = 255;
    state.layers.layrData = 0;
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        EXPECT_THAT(editor.litModeLayers(), ElementsAre(0, 2));
    });
}

TEST_F(PadEditor, ComingFromAnotherControlTheModeLayerStaysLit) {
    for (const int control : {31, 36}) {
        editor.click(control);
        use(2, [&](pad& padEditor) {
            padEditor.m_pads[0].click();
            EXPECT_THAT(editor.litModeLayers(), ElementsAre(0));
        });
    }
}

TEST_F(PadEditor, ABytesOf80AndAboveIsShownAsNothing) {
    editor.channelOf(1, 70) = 0x80;
    editor.numberOf(1, 70) = 0xFF;
    use(1, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        EXPECT_EQ(padEditor.combo_chan.indexOfSelectedItem(), -1);
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), -1);
    });
}

// Choosing a pad layer.

TEST_F(PadEditor, AnotherLayerIsShownAndLit) {
    editor.byte(3, 249) = 30;
    editor.byte(3, 247) = 100;
    editor.channelOf(3, 70) = 4;
    editor.numberOf(3, 70) = 5;
    state.pads.abChAll.set(3, true);
    use(1, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.m_paLa3.click();
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 3);
        EXPECT_EQ(litLayers(padEditor), std::set<int>{3});
        EXPECT_THAT(editor.litPadLayers(), ElementsAre(3));
        EXPECT_EQ(padEditor.combo_intervl.indexOfSelectedItem(), 5);
        EXPECT_EQ(padEditor.combo_curv.indexOfSelectedItem(), 5);
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 80);
        EXPECT_TRUE(padEditor.combo_curConst.isEnabled());
        EXPECT_EQ(padEditor.tx_Non.stringValue(), "Const");
        EXPECT_EQ(padEditor.combo_chanMod.indexOfSelectedItem(), 1);
        EXPECT_EQ(padEditor.combo_chan.indexOfSelectedItem(), 4);
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), 5);

        padEditor.m_paLa2.click();
        EXPECT_EQ(litLayers(padEditor), std::set<int>{2});
        EXPECT_THAT(editor.litPadLayers(), ElementsAre(2));
        EXPECT_EQ(padEditor.combo_curv.indexOfSelectedItem(), 1);
        EXPECT_FALSE(padEditor.combo_curConst.isEnabled());
        EXPECT_TRUE(showsBlank(padEditor.combo_curConst));
        EXPECT_EQ(padEditor.tx_Non.stringValue(), "None");
        EXPECT_EQ(padEditor.combo_chanMod.indexOfSelectedItem(), 0);
    });
    EXPECT_THAT(editor.litPadLayers(), ElementsAre(0));
    EXPECT_EQ(state.layers.m_paLa, 0);
}

TEST_F(PadEditor, ASecondClickKeepsTheLayerLit) {
    use(2, [&](pad& padEditor) {
        padEditor.m_paLa2.click();
        EXPECT_EQ(litLayers(padEditor), std::set<int>{2});
        padEditor.m_paLa2.setState(0);
        padEditor.zPaLa(2);
        EXPECT_EQ(litLayers(padEditor), std::set<int>{2});
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 2);
    });
}

TEST_F(PadEditor, WithoutACurrentLayerAClickDoesNothing) {
    use(2, [&](pad& padEditor) {
        state.pads.m_zPaLayer_CurSel = 0;
        padEditor.zPaLa(3);
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 0);
        EXPECT_EQ(litLayers(padEditor), std::set<int>{2});
        state.pads.m_zPaLayer_CurSel = 2;
    });
}

TEST_F(PadEditor, TheFirstEntryOfTheLayerButtonsRepeatsTheSecond) {
    use(2, [&](pad& padEditor) {
        padEditor.PaLa(0);
        EXPECT_EQ(litLayers(padEditor), (std::set<int>{1, 2}));
        EXPECT_EQ(padEditor.m_paLa0.state(), 0);
        padEditor.PaLa(2);
    });
}

TEST_F(PadEditor, TheUnusedLayerButtonDoesNothing) {
    use(2, [&](pad& padEditor) {
        padEditor.m_paLa0.click();
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 2);
    });
}

// The end.

TEST_F(PadEditor, FinishEndsTheModalRun) {
    use(1, [](pad&) {});
    EXPECT_EQ(state.pads.isInit2, 0);
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::modalBegins<pad>(), journal::stopModal(),
                                               journal::modalEnds<pad>()));
}

TEST_F(PadEditor, ClosingTheWindowEndsTheModalRunToo) {
    desktop.onModal<pad>([](pad& padEditor) { padEditor.window().close(); });
    editor.clickPadLayer(1);
    EXPECT_EQ(state.pads.pad_modal, 0);
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::modalBegins<pad>(), journal::stopModal(),
                                               journal::modalEnds<pad>()));
}

// The writers and what is never called.

TEST_F(PadEditor, OffersTheImageWritersAsWell) {
    use(1, [&](pad& padEditor) {
        config::Image expected = state.sysData;
        const config::Image copyBefore = state.pads.sysbuf_domal;
        padEditor.setPaCc_domal(2, 70, 99);
        padEditor.setPaChan_domal(2, 70, 12);
        padEditor.setPaIntrvl_domal(2, 75);
        padEditor.setPaCurv_domal(2, 10);
        expected.at(position(2, 87 + 70)) = 99;
        expected.at(position(2, 7 + 70)) = 12;
        expected.at(position(2, 249)) = 75;
        expected.at(position(2, 247)) = 127;
        EXPECT_EQ(state.sysData, expected);
        EXPECT_EQ(state.pads.sysbuf_domal, copyBefore);
    });
}

TEST_F(PadEditor, TheUnusedPadLightsTakeTheTagItselfForAPosition) {
    use(1, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.keepPadSel(70);
        padEditor.cleanPadSel();
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{0});
        padEditor.keepPadSel(4);
        padEditor.keepPadSel(-1);
        EXPECT_EQ(litOf(padEditor.m_pads), (std::set<int>{0, 4}));
        state.pads.m_pad_CurSel = 4;
        padEditor.cleanPadSel();
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{0});
        state.pads.m_pad_CurSel = 70;
    });
}

TEST_F(PadEditor, NumbersThatAreNoPadAndNoLayerDoNothing) {
    use(1, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        for (const int control : {-1, 0, 64, 74, 127}) {
            padEditor.selectPad(control);
            padEditor.pad_core(control);
        }
        toolkit::Button stranger;
        for (const int tag : {-1, 0, 35, 40, 64, 74}) {
            stranger.setTag(tag);
            padEditor.onSele(stranger);
            padEditor.OnzPaLa(stranger);
        }
        padEditor.PaLa(-1);
        padEditor.PaLa(4);
        EXPECT_EQ(state.pads.m_pad_CurSel, 70);
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 1);
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{0});
        EXPECT_EQ(litLayers(padEditor), std::set<int>{1});
        state.pads.m_pad_CurSel = 20;
        padEditor.selectPad(20);
        EXPECT_EQ(litOf(padEditor.m_pads), std::set<int>{0});
        state.pads.m_pad_CurSel = 70;
    });
}

}  // namespace
}  // namespace editor
