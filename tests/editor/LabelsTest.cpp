#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr std::array<int, 7> shortListControls = {21, 22, 24, 25, 26, 27, 28};

bool isShort(int control) {
    return std::find(shortListControls.begin(), shortListControls.end(), control) !=
           shortListControls.end();
}

class Labels : public EditorTest {
protected:
    Labels() {
        // Whatever was shown before.
        window.combo_type.removeAllItems();
        window.combo_cc.removeAllItems();
        window.combo_cc.addItemWithObjectValue("before");
        window.combo_cc.selectItemAtIndex(0);
        window.mode_info.setStringValue("before");
        image_ = state.sysData;
    }
    void TearDown() override { EXPECT_EQ(state.sysData, image_) << "labels are no assignments"; }

    void enable(bool enabled) {
        window.combo_type.setEnabled(enabled);
        window.combo_cc.setEnabled(enabled);
        window.combo_chan.setEnabled(enabled);
    }
    void expectEnabled(bool type, bool valueAndChannel) {
        EXPECT_EQ(window.combo_type.isEnabled(), type);
        EXPECT_EQ(window.combo_cc.isEnabled(), valueAndChannel);
        EXPECT_EQ(window.combo_chan.isEnabled(), valueAndChannel);
    }

private:
    config::Image image_{};
};

TEST_F(Labels, TheTypeBoxIsRefilledInEveryMode) {
    for (int mode = 0; mode < 8; ++mode) {
        state.modes.machn_mod = mode;
        window.combo_type.removeAllItems();
        controller.lie_note(10);
        EXPECT_THAT(itemsOf(window.combo_type), ElementsAre("Note", "CC", "Program")) << mode;
    }
}

TEST_F(Labels, AnUnknownModeTouchesNothingElse) {
    for (const int mode : {6, 255}) {
        state.modes.machn_mod = mode;
        for (const bool enabled : {false, true}) {
            enable(enabled);
            controller.lie_note(24);
            expectEnabled(enabled, enabled);
            EXPECT_THAT(itemsOf(window.combo_cc), ElementsAre("before"));
            EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 0);
            EXPECT_EQ(window.combo_type.indexOfSelectedItem(), -1);
            EXPECT_EQ(window.mode_info.stringValue(), "before");
        }
    }
}

TEST_F(Labels, TheModeIsReadAsAByte) {
    state.modes.machn_mod = 256 + 3;
    controller.lie_note(10);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::LV()));
}

TEST_F(Labels, InUserDefinedModeAShortListControlIsForcedToControlChange) {
    state.modes.machn_mod = 0;
    for (const int control : shortListControls) {
        for (const int kind : {0, 1, 2, 7}) {
            state.selection.select_type = kind;
            enable(true);
            controller.lie_note(control);
            expectEnabled(false, true);
            EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 1);
            EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::CC()));
            EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
            EXPECT_EQ(window.mode_info.stringValue(), "CC Number");
            EXPECT_EQ(state.selection.select_type, kind);
        }
    }
}

TEST_F(Labels, InUserDefinedModeEveryOtherControlFollowsTheKindChosenLast) {
    state.modes.machn_mod = 0;
    struct Case {
        int chosen;
        int index;
        std::vector<std::string> items;
        std::string caption;
    };
    const std::vector<Case> cases = {{0, 0, itemsOf(data::Note()), "Note Value"},
                                     {1, 1, itemsOf(data::CC()), "CC Number"},
                                     {2, 2, itemsOf(data::Prog()), "Program Number"},
                                     {7, 2, itemsOf(data::Prog()), "Program Number"},
                                     {-1, 2, itemsOf(data::Prog()), "Program Number"}};
    for (const int control : {-1, 0, 20, 23, 29, 73, 127}) {
        for (const Case& given : cases) {
            state.selection.select_type = given.chosen;
            enable(false);
            controller.lie_note(control);
            expectEnabled(true, true);
            EXPECT_EQ(window.combo_type.indexOfSelectedItem(), given.index);
            EXPECT_EQ(itemsOf(window.combo_cc), given.items);
            EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
            EXPECT_EQ(window.mode_info.stringValue(), given.caption);
        }
    }
}

TEST_F(Labels, InUserDefinedModeTheLastChoiceInTheTypeBoxDecides) {
    TestEditor fresh;
    fresh.chooseMode(0);
    fresh.window.combo_type.choose(2);
    fresh.controller.lie_note(10);
    EXPECT_EQ(fresh.window.mode_info.stringValue(), "Program Number");
}

/// A host's mode and what it shows.
class LabelsOfAHost : public Labels {
protected:
    void expectHost(int mode, const std::vector<std::string>& shortItems,
                    const std::vector<std::string>& items) {
        state.modes.machn_mod = mode;
        for (int control = 0; control <= 73; ++control) {
            const bool offersShort = isShort(control) && !shortItems.empty();
            for (const bool typeEnabled : {false, true}) {
                enable(!offersShort);
                window.combo_type.setEnabled(typeEnabled);
                controller.lie_note(control);
                expectEnabled(typeEnabled, offersShort);
                EXPECT_THAT(itemsOf(window.combo_cc),
                            ElementsAreArray(offersShort ? shortItems : items))
                    << mode << ' ' << control;
                EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), -1);
                EXPECT_EQ(window.combo_type.indexOfSelectedItem(), -1);
                EXPECT_EQ(window.mode_info.stringValue(), "before");
            }
        }
    }
};

TEST_F(LabelsOfAHost, Nuendo) {
    expectHost(1,
               {"0)   EDIT", "1)   Name/Value", "2)   SMPTE/Beats", "3)   F1", "4)   F2", "5)   F3",
                "6)   F4", "7)   F5", "8)   F6", "9)   F7", "10)   F8", "11)   save", "12)   Mixer",
                "13)   Motors", "14)   VST", "15)   Master", "16)   Scrud", "17)   Undo"},
               itemsOf(data::ND()));
}

TEST_F(LabelsOfAHost, Samplitude) {
    expectHost(2, {"0)   Mixer",       "1)   Name/Value",
                   "2)   SMPTE/Beats", "3)   F1",
                   "4)   F2",          "5)   F3",
                   "6)   F4",          "7)   F5",
                   "8)   F6",          "9)   F7",
                   "10)   F8",         "11)   Control",
                   "12)   option",     "13)   Undo/(shift)redo",
                   "14)   Latch",      "15)   T",
                   "16)   tr",         "17)   cansel",
                   "18)   enter",      "19)   save",
                   "20)   Marker",     "21)   object",
                   "22)   Loop",       "23)   Punch",
                   "24)   SYNC",       "25)   Click(Metronom)AIO",
                   "26)   Scrud"},
               itemsOf(data::SP()));
}

TEST_F(LabelsOfAHost, LiveHasNoShortList) {
    expectHost(3, {}, itemsOf(data::LV()));
}

TEST_F(LabelsOfAHost, LogicShowsTheNuendoFunctions) {
    expectHost(
        4, {"0)   Name/Value", "1)   SMPTE/Beats", "2)   F1",      "3)   F2",     "4)   F3",
            "5)   F4",         "6)   F5",          "7)   F6",      "8)   F7",     "9)   F8",
            "10)   control",   "11)   Mixer",      "12)   Motors", "13)   VST",   "14)   Master",
            "15)   Replace",   "16)   ADD",        "17)   Solo",   "18)   Scrud", "19)   option",
            "20)   Cmp/ACT",   "21)   Nudge",      "22)   Drop",   "23)   Marker"},
        itemsOf(data::ND()));
    controller.lie_note(10);
    EXPECT_EQ(itemsOf(window.combo_cc).at(40), "2(E)    Page UP");
    EXPECT_EQ(itemsOf(window.combo_cc).at(39), "2(D#)   V_Select CH.8");
}

TEST_F(LabelsOfAHost, SamplitudesNote39HasItsTwoBlanks) {
    state.modes.machn_mod = 2;
    controller.lie_note(10);
    EXPECT_EQ(itemsOf(window.combo_cc).at(39), "2(D#)  Monitor CH.8");
}

TEST_F(LabelsOfAHost, HuiShowsOneBlank) {
    state.modes.machn_mod = 5;
    for (const int control : {0, 24, 73}) {
        enable(true);
        controller.lie_note(control);
        expectEnabled(true, false);
        EXPECT_THAT(itemsOf(window.combo_cc), ElementsAre(" "));
        EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 0);
        EXPECT_EQ(window.mode_info.stringValue(), "before");
    }
}

}  // namespace
}  // namespace editor
