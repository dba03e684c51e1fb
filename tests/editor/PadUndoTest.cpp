// Undo and Redo while the pad editor is open.

#include <gtest/gtest.h>

#include <random>

#include "editor/UndoWalk.h"

namespace editor {
namespace {

/// The editor and the pad editor as they are seen.
struct PadSeen {
    Seen main;
    std::array<BoxSeen, 6> boxes;
    std::vector<std::pair<int, bool>> buttons;
    std::string text;

    [[nodiscard]] bool equals(const PadSeen& other) const {
        return main.equals(other.main) && boxes == other.boxes && buttons == other.buttons &&
               text == other.text;
    }
};

bool isSameWork(const PadSeen& one, const PadSeen& other) {
    return isSameWork(one.main, other.main) &&
           one.main.state.pads.sysbuf_domal == other.main.state.pads.sysbuf_domal;
}

PadSeen padSeenIn(const TestEditor& editor, pad& padEditor) {
    PadSeen seen;
    seen.main = seenIn(editor);
    seen.boxes = {seenIn(padEditor.combo_chan), seenIn(padEditor.combo_chanMod),
                  seenIn(padEditor.combo_msg),  seenIn(padEditor.combo_intervl),
                  seenIn(padEditor.combo_curv), seenIn(padEditor.combo_curConst)};
    for (const toolkit::Button& button : padEditor.m_pads) {
        seen.buttons.emplace_back(button.state(), button.isEnabled());
    }
    for (const toolkit::Button* button :
         {&padEditor.m_paLa1, &padEditor.m_paLa2, &padEditor.m_paLa3}) {
        seen.buttons.emplace_back(button->state(), button->isEnabled());
    }
    seen.text = padEditor.tx_Non.stringValue();
    return seen;
}

class PadUndo : public UserDefinedTest {
protected:
    void use(const std::function<void(pad&)>& script) { editor.usePadEditor(1, script); }
};

TEST_F(PadUndo, TakesEachEditForAStep) {
    use([&](pad& padEditor) {
        EXPECT_FALSE(padEditor.canUndo());
        padEditor.m_pads[0].click();
        EXPECT_FALSE(padEditor.canUndo()) << "a pad was only selected";
        const int note = padEditor.combo_msg.indexOfSelectedItem();
        padEditor.combo_msg.choose(note == 60 ? 62 : 60);
        padEditor.m_paLa3.click();
        padEditor.combo_intervl.choose(40);
        padEditor.undo();
        EXPECT_EQ(padEditor.status.stringValue(), "Undone: Pad layer 4: interval 65 ms");
        EXPECT_EQ(padEditor.currentLayer(), 3);
        padEditor.m_paLa2.click();
        padEditor.undo();
        EXPECT_EQ(padEditor.currentLayer(), 1) << "where the note was chosen";
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), note);
        EXPECT_FALSE(padEditor.canUndo());
        padEditor.redo();
        EXPECT_EQ(padEditor.combo_msg.indexOfSelectedItem(), note == 60 ? 62 : 60);
        EXPECT_TRUE(padEditor.canRedo());
    });
}

TEST_F(PadUndo, LeavesNoStepWhereEverythingWasUndone) {
    const std::size_t steps = controller.document().numberOfSteps();
    const config::Image before = state.sysData;
    use([&](pad& padEditor) {
        padEditor.combo_intervl.choose(40);
        padEditor.combo_curv.choose(padEditor.combo_curv.indexOfSelectedItem() == 2 ? 3 : 2);
        padEditor.undo();
        padEditor.undo();
    });
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(controller.document().numberOfSteps(), steps);
}

TEST_F(PadUndo, TellsTheView) {
    use([&](pad& padEditor) {
        padEditor.combo_intervl.choose(40);
        int told = 0;
        padEditor.actionEnded = [&told] { ++told; };
        padEditor.undo();
        EXPECT_EQ(told, 1);
        padEditor.undo();
        EXPECT_EQ(told, 1) << "there is nothing to undo";
        padEditor.redo();
        EXPECT_EQ(told, 2);
    });
}

TEST_F(PadUndo, HasThePadsThatAreNotOnFileAskedFor) {
    use([&](pad& padEditor) {
        padEditor.m_pads[0].click();
        padEditor.combo_msg.choose(padEditor.combo_msg.indexOfSelectedItem() == 60 ? 62 : 60);
        padEditor.combo_intervl.choose(40);
        EXPECT_EQ(state.bChange, 0);
        padEditor.undo();
        EXPECT_EQ(state.bChange, 1);
        padEditor.undo();
        EXPECT_EQ(state.bChange, 0);
    });
}

class PadUndoWalks : public testing::TestWithParam<unsigned> {};

TEST_P(PadUndoWalks, BringBackWhatWas) {
    std::mt19937 random(GetParam());
    TestEditor editor;
    editor.chooseMode(0);
    editor.click(65);
    editor.usePadEditor(1, [&](pad& padEditor) {
        UndoModel<unsigned, PadSeen> model;
        for (int step = 0; step < 500; ++step) {
            const auto dice = static_cast<unsigned>(random() % 100);
            ASSERT_EQ(padEditor.canUndo(), model.canUndo()) << step;
            ASSERT_EQ(padEditor.canRedo(), model.canRedo()) << step;
            if (dice < 20 && model.canUndo()) {
                padEditor.undo();
                ASSERT_TRUE(padSeenIn(editor, padEditor).equals(model.undo())) << step;
            } else if (dice < 40 && model.canRedo()) {
                padEditor.redo();
                ASSERT_TRUE(padSeenIn(editor, padEditor).equals(model.redo())) << step;
            } else {
                const PadSeen before = padSeenIn(editor, padEditor);
                UndoModel<unsigned, PadSeen>::Choice choice;
                if (dice % 3 == 0) {
                    padEditor.m_pads.at(random() % 9).click();
                } else if (dice % 7 == 0) {
                    padEditor.m_paLa2.click();
                } else if (dice % 7 == 1) {
                    padEditor.m_paLa3.click();
                } else {
                    const std::array<toolkit::ComboBox*, 6> boxes = {
                        &padEditor.combo_chan, &padEditor.combo_chanMod,
                        &padEditor.combo_msg,  &padEditor.combo_intervl,
                        &padEditor.combo_curv, &padEditor.combo_curConst};
                    toolkit::ComboBox& box = *boxes.at(random() % 6);
                    const int index = random() % 3 == 0
                                          ? box.indexOfSelectedItem() + 1
                                          : static_cast<int>(random() % static_cast<unsigned>(
                                                                            box.numberOfItems()));
                    const bool taken = box.isEnabled() && index < box.numberOfItems() &&
                                       index != box.indexOfSelectedItem();
                    box.choose(index);
                    if (!taken) {
                        continue;
                    }
                    choice = {&box, index};
                }
                model.act({dice, before, padSeenIn(editor, padEditor)}, choice);
            }
        }
        while (model.canUndo()) {
            padEditor.undo();
            ASSERT_TRUE(padSeenIn(editor, padEditor).equals(model.undo()));
        }
        EXPECT_FALSE(padEditor.canUndo());
        while (model.canRedo()) {
            padEditor.redo();
            ASSERT_TRUE(padSeenIn(editor, padEditor).equals(model.redo()));
        }
    });
}

INSTANTIATE_TEST_SUITE_P(FixedSeeds, PadUndoWalks, testing::Range(1U, 11U));

}  // namespace
}  // namespace editor
