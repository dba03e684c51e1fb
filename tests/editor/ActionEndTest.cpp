// What the window learns at the end of an action: that it is time to look, and a word about it.

#include <gtest/gtest.h>

#include "editor/PresetFiles.h"

namespace editor {
namespace {

class ActionEnd : public PresetTest {
protected:
    ActionEnd() {
        editor.chooseMode(0);
        window.actionEnded = [this] {
            ++ends;
            atEnd = state.sysData;
        };
    }
    /// How often the action told its end; the image must be finished by then.
    template <typename Action>
    int endsOf(Action act) {
        ends = 0;
        act();
        if (ends > 0) {
            EXPECT_EQ(atEnd, state.sysData);
        }
        return ends;
    }

    int ends = 0;
    config::Image atEnd{};
};

TEST_F(ActionEnd, IsToldOnceByEveryClickAndChoice) {
    EXPECT_EQ(endsOf([&] { window.keysOrderedByTag.at(12).click(); }), 1);
    EXPECT_EQ(endsOf([&] { window.keysOrderedByTag.at(70).click(); }), 1);
    EXPECT_EQ(endsOf([&] { window.moLaCtrls.at(2).click(); }), 1);
    EXPECT_EQ(endsOf([&] { window.paLaCtrls.at(0).click(); }), 1);
    EXPECT_EQ(endsOf([&] { window.locker.click(); }), 1);
    EXPECT_EQ(endsOf([&] { window.combo_chan.choose(7); }), 1);
    EXPECT_EQ(endsOf([&] { window.combo_type.choose(1); }), 1);
    EXPECT_EQ(endsOf([&] { window.combo_cc.choose(9); }), 1);
    EXPECT_EQ(endsOf([&] { window.combo_trig.choose(3); }), 1);
    EXPECT_EQ(endsOf([&] { window.combo_mode.choose(4); }), 1);
}

TEST_F(ActionEnd, IsNotToldWhereNothingRan) {
    EXPECT_EQ(endsOf([&] { window.combo_mode.choose(0); }), 0);  // chosen already
}

TEST_F(ActionEnd, IsToldWhenThePadEditorHasClosed) {
    EXPECT_EQ(endsOf([&] { editor.usePadEditor(2, [](pad&) {}); }), 1);
}

TEST_F(ActionEnd, IsToldByThePadEditorOfEveryClickAndChoiceInIt) {
    editor.usePadEditor(2, [&](pad& padEditor) {
        int told = 0;
        std::string note;
        padEditor.actionEnded = [&] {
            ++told;
            note = padEditor.assignmentOfPad(controlOfPadTag[4]).shortText();
        };
        padEditor.m_pads[4].click();
        EXPECT_EQ(told, 1);
        padEditor.combo_msg.choose(60);
        EXPECT_EQ(told, 2);
        EXPECT_EQ(note, "C4") << "the copy that is edited is what the pads show";
        padEditor.m_paLa3.click();
        EXPECT_EQ(told, 3);
        for (toolkit::ComboBox* box : {&padEditor.combo_chan, &padEditor.combo_chanMod,
                                       &padEditor.combo_intervl, &padEditor.combo_curv}) {
            told = 0;
            box->choose(box->indexOfSelectedItem() == 0 ? 1 : 0);
            EXPECT_EQ(told, 1);
        }
    });
}

TEST_F(ActionEnd, NamesTheFileThatWasSavedOrLoaded) {
    EXPECT_EQ(endsOf([&] { save(editor, file); }), 1);
    EXPECT_EQ(window.status.stringValue(), "Saved " + file.filename().string());
    EXPECT_EQ(endsOf([&] { load(editor, file); }), 1);
    EXPECT_EQ(window.status.stringValue(), "Loaded " + file.filename().string());
}

}  // namespace
}  // namespace editor
