#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/PadEditorTest.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::IsEmpty;

using PadBoxes = PadEditorTest;

// Channel.

TEST_F(PadBoxes, AChannelGoesToTheChosenPadInCopyAndImage) {
    const config::Image before = state.sysData;
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.combo_chan.choose(3);
        config::Image expected = before;
        expected.at(position(2, 7 + 70)) = 3;
        EXPECT_EQ(state.sysData, expected);
        EXPECT_THAT(mirroredOtherwise(), IsEmpty());
        EXPECT_EQ(padEditor.combo_chan.indexOfSelectedItem(), 3);
    });
    EXPECT_EQ(editor.channelOf(2, 70), 3);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(PadBoxes, WithAllPadsAChannelGoesToTheLayersNinePads) {
    const config::Image before = state.sysData;
    use(2, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.combo_chanMod.choose(1);
        padEditor.combo_chan.choose(3);
        config::Image expected = before;
        for (int control = 65; control <= 73; ++control) {
            expected.at(position(2, 7 + control)) = 3;
        }
        EXPECT_EQ(state.sysData, expected);
        EXPECT_THAT(mirroredOtherwise(), IsEmpty());
        padEditor.combo_chanMod.choose(0);
        padEditor.combo_chan.choose(4);
        expected.at(position(2, 7 + 70)) = 4;
        EXPECT_EQ(state.sysData, expected);
    });
}

TEST_F(PadBoxes, TheChannelModeBelongsToItsLayerAndLasts) {
    use(2, [&](pad& padEditor) {
        padEditor.combo_chanMod.choose(1);
        EXPECT_TRUE(state.pads.abChAll.isSet(2));
        EXPECT_FALSE(state.pads.abChAll.isSet(1));
        EXPECT_FALSE(state.pads.abChAll.isSet(3));
        padEditor.m_paLa1.click();
        EXPECT_EQ(padEditor.combo_chanMod.indexOfSelectedItem(), 0);
    });
    use(2, [&](pad& padEditor) {
        EXPECT_EQ(padEditor.combo_chanMod.indexOfSelectedItem(), 1);
        padEditor.combo_chanMod.choose(0);
        EXPECT_FALSE(state.pads.abChAll.isSet(2));
    });
}

TEST_F(PadBoxes, WithoutAPadTheChannelBoxServesAllPadsOnly) {
    editor.click(20);
    use(2, [&](pad& padEditor) {
        EXPECT_FALSE(padEditor.combo_chan.isEnabled());
        padEditor.combo_chanMod.choose(1);
        EXPECT_TRUE(padEditor.combo_chan.isEnabled());
        padEditor.combo_chan.choose(3);
        for (int control = 65; control <= 73; ++control) {
            EXPECT_EQ(editor.copied(2, 7 + control), 3);
        }
        EXPECT_EQ(editor.copied(2, 7 + 20), 0);
        padEditor.m_paLa3.click();
        EXPECT_FALSE(padEditor.combo_chan.isEnabled());
        padEditor.m_paLa2.click();
        EXPECT_TRUE(padEditor.combo_chan.isEnabled());
        padEditor.combo_chanMod.choose(0);
        EXPECT_FALSE(padEditor.combo_chan.isEnabled());
        padEditor.m_pads[0].click();
        EXPECT_TRUE(padEditor.combo_chan.isEnabled());
    });
}

// Note.

TEST_F(PadBoxes, ANoteGoesToTheChosenPadInCopyAndImage) {
    const config::Image before = state.sysData;
    use(3, [&](pad& padEditor) {
        padEditor.m_pads[1].click();
        padEditor.combo_msg.choose(99);
        config::Image expected = before;
        expected.at(position(3, 87 + 69)) = 99;
        EXPECT_EQ(state.sysData, expected);
        EXPECT_THAT(mirroredOtherwise(), IsEmpty());
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), 99);
    });
    EXPECT_EQ(editor.numberOf(3, 69), 99);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(PadBoxes, WithoutAPadThereIsNoNoteToChoose) {
    editor.click(20);
    use(2, [&](pad& padEditor) {
        EXPECT_FALSE(padEditor.combo_msg.isEnabled());
        padEditor.combo_chanMod.choose(1);
        EXPECT_FALSE(padEditor.combo_msg.isEnabled());
        padEditor.m_pads[0].click();
        EXPECT_TRUE(padEditor.combo_msg.isEnabled());
    });
}

TEST_F(PadBoxes, WithNothingSelectedInTheMainWindowNoNoteIsTaken) {
    editor.chooseMode(1);
    use(2, [&](pad& padEditor) {
        ASSERT_EQ(state.selection.keyEvnt, 127);
        padEditor.m_pads[0].click();
        EXPECT_FALSE(padEditor.combo_msg.isEnabled());
        EXPECT_TRUE(padEditor.combo_chan.isEnabled());
        const config::Image before = state.sysData;
        const config::Image copyBefore = state.pads.sysbuf_domal;
        padEditor.combo_msg.selectItemAtIndex(99);
        padEditor.comboBoxSelectionIsChanging(padEditor.combo_msg);
        EXPECT_EQ(state.sysData, before);
        EXPECT_EQ(state.pads.sysbuf_domal, copyBefore);
    });
    EXPECT_EQ(state.selection.keyEvnt, 70);  // the pad chosen there
}

// Interval.

TEST_F(PadBoxes, AnIntervalIsMillisecondsInTheCopyAndAListPositionInTheImageUntilItCloses) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_intervl.choose(0);
        EXPECT_EQ(editor.copied(1, 249), 25);
        EXPECT_EQ(editor.byte(1, 249), 0);
        padEditor.combo_intervl.choose(75);
        EXPECT_EQ(editor.copied(1, 249), 100);
        EXPECT_EQ(editor.byte(1, 249), 75);
        EXPECT_EQ(mirroredOtherwise(), (std::set<std::pair<int, int>>{{1, 249}}));
        EXPECT_EQ(editor.byte(2, 249), 64);
    });
    EXPECT_EQ(editor.byte(1, 249), 100);
}

// Velocity.

TEST_F(PadBoxes, ConstOnALayerThatNeverHadAConstantVelocityIs84) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        EXPECT_EQ(editor.copied(1, 247), 84);
        EXPECT_EQ(editor.byte(1, 247), 0x54);
        EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 84);
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 64);
        EXPECT_TRUE(padEditor.combo_curConst.isEnabled());
        EXPECT_EQ(padEditor.tx_Non.stringValue(), "Const");
    });
    EXPECT_EQ(editor.byte(1, 247), 84);
}

TEST_F(PadBoxes, TheConstantVelocityOf100ComesBackAfterACurve) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        padEditor.combo_curConst.choose(80);
        EXPECT_EQ(editor.copied(1, 247), 100);
        EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 100);
        padEditor.combo_curv.choose(2);
        EXPECT_EQ(editor.copied(1, 247), 2);
        EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 100);
        EXPECT_TRUE(showsBlank(padEditor.combo_curConst));
        EXPECT_FALSE(padEditor.combo_curConst.isEnabled());
        EXPECT_EQ(padEditor.tx_Non.stringValue(), "None");
        padEditor.combo_curv.choose(5);
        EXPECT_EQ(editor.copied(1, 247), 100);
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 80);
    });
}

TEST_F(PadBoxes, ACurveAfterACurveForgetsTheConstantVelocity) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        padEditor.combo_curConst.choose(80);
        padEditor.combo_curv.choose(2);
        padEditor.combo_curv.choose(3);
        EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 2);
        padEditor.combo_curv.choose(5);
        EXPECT_EQ(editor.copied(1, 247), 84);
        EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 84);
    });
}

TEST_F(PadBoxes, ANegativeKeptVelocityCountsAsNone) {
    state.pads.SYSBuf_vel_bak[1] = -5;
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        EXPECT_EQ(editor.copied(1, 247), 84);
    });
}

TEST_F(PadBoxes, TheKeptVelocityBelongsToItsLayer) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        padEditor.combo_curConst.choose(80);
        padEditor.m_paLa2.click();
        padEditor.combo_curv.choose(5);
        EXPECT_EQ(editor.copied(2, 247), 84);
        EXPECT_EQ(editor.copied(1, 247), 100);
    });
}

TEST_F(PadBoxes, ACurveIsPlainInTheCopyAndInAFormOfItsOwnInTheImageUntilItCloses) {
    struct Case {
        int curve;
        int mirrored;
    };
    for (const Case& given : {Case{0, 0}, Case{3, 3}, Case{4, 0x44}, Case{2, 2}}) {
        use(2, [&](pad& padEditor) {
            padEditor.combo_curv.choose(given.curve);
            EXPECT_EQ(editor.copied(2, 247), given.curve);
            EXPECT_EQ(editor.byte(2, 247), given.mirrored);
            EXPECT_EQ(padEditor.combo_curv.indexOfSelectedItem(), given.curve);
        });
        EXPECT_EQ(editor.byte(2, 247), given.curve);
    }
}

TEST_F(PadBoxes, AConstantVelocityGoesToTheCopyAlone) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        const config::Image before = state.sysData;
        for (const int index : {0, 107}) {
            padEditor.combo_curConst.choose(index);
            EXPECT_EQ(editor.copied(1, 247), index + 20);
            EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], index + 20);
        }
        EXPECT_EQ(state.sysData, before);
    });
    EXPECT_EQ(editor.byte(1, 247), 127);
}

TEST_F(PadBoxes, ABlankConstantVelocityShowsTheStoredOneAgain) {
    use(1, [&](pad& padEditor) {
        padEditor.combo_curv.choose(5);
        padEditor.combo_curConst.choose(80);
        const config::Image copyBefore = state.pads.sysbuf_domal;
        padEditor.combo_curConst.choose(108);
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 80);
        EXPECT_EQ(state.pads.sysbuf_domal, copyBefore);
        EXPECT_EQ(state.pads.SYSBuf_vel_bak[1], 100);
    });
}

TEST_F(PadBoxes, TheVelocityBoxHoldsOneBlankHoweverOftenItIsShown) {
    use(1, [&](pad& padEditor) {
        padEditor.rmVelSel();
        padEditor.rmVelSel();
        EXPECT_EQ(itemsOf(padEditor.combo_curConst), withBlank(itemsOf(data::curv5_vel())));
        EXPECT_EQ(padEditor.combo_curConst.indexOfSelectedItem(), 108);
        padEditor.combo_curConst.removeAllItems();
        padEditor.rmVelSel();
        EXPECT_EQ(padEditor.combo_curConst.numberOfItems(), 1);
    });
}

// The boxes' dispatcher.

TEST_F(PadBoxes, ABoxOfAnotherWindowOrWithoutASelectionIsIgnored) {
    use(1, [&](pad& padEditor) {
        padEditor.m_pads[0].click();
        const config::Image before = state.sysData;
        const config::Image copyBefore = state.pads.sysbuf_domal;
        padEditor.comboBoxSelectionIsChanging(window.combo_mode);
        for (toolkit::ComboBox* box :
             {&padEditor.combo_chan, &padEditor.combo_msg, &padEditor.combo_intervl,
              &padEditor.combo_curv, &padEditor.combo_curConst, &padEditor.combo_chanMod}) {
            box->selectItemAtIndex(-1);
            padEditor.comboBoxSelectionIsChanging(*box);
        }
        EXPECT_EQ(state.sysData, before);
        EXPECT_EQ(state.pads.sysbuf_domal, copyBefore);
        EXPECT_FALSE(state.pads.abChAll.isSet(1));
    });
}

}  // namespace
}  // namespace editor
