#include "editor/showState.h"

#include <gtest/gtest.h>

#include <random>

#include "editor/TestEditor.h"

namespace editor {
namespace {

class ShowState : public UserDefinedTest {
protected:
    /// One thing a person does that leaves every widget as the state wants it.
    void doSomething(std::mt19937& random) {
        const auto below = [&random](unsigned count) { return static_cast<int>(random() % count); };
        switch (below(8)) {
            case 0:
            case 1:
                editor.click(below(74));
                break;
            case 2:
                editor.clickModeLayer(below(4));
                break;
            case 3:
                editor.chooseMode(below(6));
                break;
            case 4:
                window.combo_chan.choose(below(16));
                break;
            case 5:
                window.combo_type.choose(below(3));
                break;
            case 6:
                window.locker.click();
                break;
            default:
                editor.usePadEditor(1 + below(3), [&](pad& padEditor) {
                    padEditor.m_pads.at(static_cast<std::size_t>(below(9))).click();
                    padEditor.combo_msg.choose(below(128));
                });
        }
    }
};

TEST_F(ShowState, FindsEverythingAsActionsLeaveIt) {
    std::mt19937 random(7);
    editor.click(3);
    for (int step = 0; step < 3'000; ++step) {
        doSomething(random);
        const Shown shown = shownBy(window);
        const Shown derived = shownOf(state, shown);
        EXPECT_EQ(derived.keysOrderedByTag, shown.keysOrderedByTag) << step;
        EXPECT_EQ(derived.moLaCtrls, shown.moLaCtrls) << step;
        EXPECT_EQ(derived.combo_type, shown.combo_type) << step;
        EXPECT_EQ(derived.combo_chan, shown.combo_chan) << step;
        EXPECT_EQ(derived.combo_cc, shown.combo_cc) << step;
        EXPECT_EQ(derived.combo_trig, shown.combo_trig) << step;
        ASSERT_TRUE(derived == shown)
            << step << " mode " << state.modes.machn_mod << " control " << state.selection.keyEvnt
            << " layer " << state.layers.m_moLa << " done " << window.status.stringValue();
    }
}

TEST_F(ShowState, PutsRightWhatIsShownWrongAndWritesNothingToTheState) {
    editor.click(70);
    const Shown right = shownBy(window);
    const EditorState before = state;
    window.combo_chan.selectItemAtIndex(15);
    window.combo_type.removeAllItems();
    window.combo_type.addItemsWithObjectValues(right.combo_type.list);
    window.combo_type.setEnabled(false);
    window.combo_trig.setEnabled(true);
    window.combo_cc.removeAllItems();
    window.keysOrderedByTag[3].setState(1);
    window.moLaCtrls[0].setState(1);
    window.locker.setState(0);
    showState(state, window);
    EXPECT_EQ(shownBy(window), right);
    EXPECT_EQ(state, before);
}

TEST_F(ShowState, TellsNoViewASecondTime) {
    editor.click(12);
    int told = 0;
    for (toolkit::ComboBox* box : {&window.combo_mode, &window.combo_type, &window.combo_chan,
                                   &window.combo_cc, &window.combo_trig}) {
        box->onChange = [&told](toolkit::ComboBox::Change) { ++told; };
    }
    for (toolkit::Button& button : window.keysOrderedByTag) {
        button.onChange = [&told] { ++told; };
    }
    state.selection.keyEvnt = 13;
    showState(state, window);
    EXPECT_GT(told, 1);
    told = 0;
    showState(state, window);
    EXPECT_EQ(told, 0);
}

TEST_F(ShowState, ShowsBlanksWhereNothingIsSelected) {
    state.selection.keyEvnt = noControl;
    showState(state, window);
    EXPECT_TRUE(showsBlank(window.combo_type));
    EXPECT_TRUE(showsBlank(window.combo_chan));
    EXPECT_TRUE(showsBlank(window.combo_trig));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
    EXPECT_TRUE(editor.litControls().empty());
    showState(state, window);
    EXPECT_EQ(blanksIn(window.combo_type), 1);
}

TEST_F(ShowState, RunsNoHandler) {
    int ended = 0;
    window.actionEnded = [&ended] { ++ended; };
    state.selection.keyEvnt = 20;
    showState(state, window);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), editor.numberOf(0, 20));
    EXPECT_EQ(ended, 0);
}

}  // namespace
}  // namespace editor
