#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

using tables::data;
using testing::ElementsAre;

/// The image, to be compared with after some bytes were put in by hand.
using Image = config::Image;

class PropertyBoxes : public UserDefinedTest {
protected:
    /// Selects a control in a layer, whatever the buttons would do.
    void edit(int layer, int control) {
        state.layers.layrData = layer;
        controller.dataChgCore(control);
    }
};

// Nothing selected, other windows.

TEST_F(PropertyBoxes, WithNothingSelectedNoChoiceIsWritten) {
    controller.dataChgCore(127);
    const Image before = state.sysData;
    window.combo_chan.choose(5);
    window.combo_cc.choose(5);
    window.combo_type.choose(1);
    window.combo_trig.choose(3);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);
    EXPECT_FALSE(state.layers.bTrigAll.isSet(0));
    EXPECT_EQ(state.selection.keyEvnt, 127);
}

TEST_F(PropertyBoxes, AChoiceForNoControlGoesBackToTheBlank) {
    controller.dataChgCore(127);
    for (toolkit::ComboBox* box :
         {&window.combo_chan, &window.combo_cc, &window.combo_type, &window.combo_trig}) {
        box->choose(1);
        box->choose(2);
        const int last = box->numberOfItems() - 1;
        EXPECT_EQ(box->indexOfSelectedItem(), last);
        EXPECT_TRUE(toolkit::isBlankEntry(*box->itemObjectValueAtIndex(last)));
        EXPECT_FALSE(toolkit::isBlankEntry(*box->itemObjectValueAtIndex(last - 1)));
    }
}

TEST_F(PropertyBoxes, ABoxOfAnotherWindowIsIgnored) {
    toolkit::ComboBox other;
    other.addItemsWithObjectValues(data::Chan());
    other.selectItemAtIndex(7);
    const Image before = state.sysData;
    controller.comboBoxSelectionIsChanging(other);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);

    controller.dataChgCore(127);  // nothing selected
    controller.comboBoxSelectionIsChanging(other);
    EXPECT_EQ(other.indexOfSelectedItem(), 7);
    EXPECT_EQ(other.numberOfItems(), 16);
}

TEST_F(PropertyBoxes, ABoxWithoutASelectionChoosesNothing) {
    const Image before = state.sysData;
    for (toolkit::ComboBox* box : {&window.combo_mode, &window.combo_chan, &window.combo_cc,
                                   &window.combo_type, &window.combo_trig}) {
        box->selectItemAtIndex(-1);
        controller.comboBoxSelectionIsChanging(*box);
    }
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.modes.machn_mod, 0);
    EXPECT_EQ(state.bChange, 0);
}

// Channel.

TEST_F(PropertyBoxes, AChannelGoesToItsOneByte) {
    for (int layer = 0; layer < 4; ++layer) {
        for (const int control : {0, 31, 35, 47, 55, 64, 65, 73}) {
            edit(layer, control);
            Image expected = state.sysData;
            const int channel = (state.sysData.at(position(layer, 7 + control)) + 5) % 16;
            expected.at(position(layer, 7 + control)) = static_cast<std::uint8_t>(channel);
            state.bChange = 0;
            window.combo_chan.choose(channel);
            EXPECT_EQ(state.sysData, expected) << layer << ' ' << control;
            EXPECT_EQ(state.bChange, 1);
        }
    }
}

TEST_F(PropertyBoxes, TheStoredChannelChosenAgainIsNoChange) {
    window.combo_chan.selectItemAtIndex(9);
    window.combo_chan.choose(0);
    EXPECT_EQ(editor.channelOf(0, 0), 0);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(PropertyBoxes, ABlankChannelShowsTheStoredOneAgain) {
    controller.rmChanSel();
    editor.channelOf(2, 20) = 11;
    edit(2, 20);
    const Image before = state.sysData;
    window.combo_chan.choose(16);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 11);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(PropertyBoxes, ASecondBlankInTheChannelBoxIsABlankToo) {
    edit(0, 20);
    window.combo_chan.addItemWithObjectValue(toolkit::blankEntry);
    window.combo_chan.addItemWithObjectValue(toolkit::blankEntry);
    const Image before = state.sysData;
    window.combo_chan.choose(17);
    EXPECT_EQ(window.combo_chan.indexOfSelectedItem(), 0);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);
}

// Value.

TEST_F(PropertyBoxes, AValueGoesToItsOneByte) {
    for (int layer = 0; layer < 4; ++layer) {
        for (const int control : {0, 31, 35, 47, 55, 64, 65, 73}) {
            edit(layer, control);
            Image expected = state.sysData;
            const int number = (state.sysData.at(position(layer, 87 + control)) + 77) % 128;
            expected.at(position(layer, 87 + control)) = static_cast<std::uint8_t>(number);
            state.bChange = 0;
            window.combo_cc.choose(number);
            EXPECT_EQ(state.sysData, expected) << layer << ' ' << control;
            EXPECT_EQ(state.bChange, 1);
        }
    }
}

TEST_F(PropertyBoxes, TheStoredValueChosenAgainIsNoChange) {
    window.combo_cc.selectItemAtIndex(9);
    window.combo_cc.choose(0x18);
    EXPECT_EQ(editor.numberOf(0, 0), 0x18);
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(PropertyBoxes, ABlankValueShowsTheStoredOneAgain) {
    editor.numberOf(1, 20) = 111;
    edit(1, 20);
    window.combo_cc.addItemWithObjectValue(toolkit::blankEntry);
    const Image before = state.sysData;
    window.combo_cc.choose(128);
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), 111);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(state.bChange, 0);
}

// Message kind.

TEST_F(PropertyBoxes, AKindReplacesTheLowFiveBits) {
    constexpr std::array<int, 3> bits = {9, 11, 12};
    for (int status = 0; status < 256; ++status) {
        for (int kind = 0; kind < 3; ++kind) {
            editor.statusOf(1, 12) = static_cast<std::uint8_t>(status);
            edit(1, 12);
            window.combo_type.selectItemAtIndex(-1);
            window.combo_type.choose(kind);
            ASSERT_EQ(editor.statusOf(1, 12),
                      (status & 0xE0) + bits.at(static_cast<std::size_t>(kind)));
            ASSERT_EQ(state.selection.msg_Typ, kind);
            ASSERT_EQ(state.selection.select_type, kind);
            ASSERT_EQ(window.combo_type.indexOfSelectedItem(), kind);
        }
    }
    EXPECT_EQ(state.bChange, 0);
}

TEST_F(PropertyBoxes, ProgramForStatus49Gives4C) {
    editor.statusOf(0, 3) = 0x49;
    edit(0, 3);
    Image expected = state.sysData;
    expected.at(position(0, 167 + 3)) = 0x4C;
    window.combo_type.choose(2);
    EXPECT_EQ(state.sysData, expected);
}

TEST_F(PropertyBoxes, TheFactoryPadsBit4IsClearedByAKind) {
    EXPECT_EQ(editor.statusOf(1, 70), 0x19);
    edit(1, 70);
    window.combo_type.choose(1);
    EXPECT_EQ(editor.statusOf(1, 70), 0x0B);
    window.combo_type.choose(0);
    EXPECT_EQ(editor.statusOf(1, 70), 0x09);
}

TEST_F(PropertyBoxes, TheValueListFollowsTheKindAndKeepsTheNumber) {
    edit(0, 3);
    const int number = editor.numberOf(0, 3);
    window.combo_type.choose(1);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::CC()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), number);
    window.combo_type.choose(2);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Prog()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), number);
    window.combo_type.choose(0);
    EXPECT_EQ(itemsOf(window.combo_cc), itemsOf(data::Note()));
    EXPECT_EQ(window.combo_cc.indexOfSelectedItem(), number);
}

TEST_F(PropertyBoxes, ABlankKindChangesNothingAndShowsTheStoredOneAgain) {
    controller.rmTypSel();
    for (const int status : {0x09, 0x4B, 0x0C, 0x0E, 0x19}) {
        editor.statusOf(0, 3) = static_cast<std::uint8_t>(status);
        edit(0, 3);
        const int shown = window.combo_type.indexOfSelectedItem();
        state.selection.select_type = 2;
        const Image before = state.sysData;
        window.combo_type.choose(3);
        EXPECT_EQ(state.sysData, before);
        EXPECT_EQ(window.combo_type.indexOfSelectedItem(), shown);
        EXPECT_EQ(state.selection.msg_Typ, shown);
        EXPECT_EQ(state.selection.select_type, 2);
    }
}

TEST_F(PropertyBoxes, ABlankForAnUnknownKindLeavesNothingSelected) {
    controller.rmTypSel();
    editor.statusOf(0, 3) = 0x08;
    edit(0, 3);
    window.combo_type.choose(3);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), -1);
    EXPECT_EQ(state.selection.msg_Typ, 63);
    EXPECT_EQ(editor.statusOf(0, 3), 0x08);
}

TEST_F(PropertyBoxes, BesideThePadEditorABlankKindIsIndexedByTheStoredByte) {
    // The boxes are shown blank right after it, which the borrowed position decides.
    controller.rmTypSel();
    editor.statusOf(0, 3) = 0x4C;
    edit(0, 3);
    state.pads.pad_modal = 1;
    const Image before = state.sysData;
    std::vector<int> selections;
    window.combo_type.onChange = [&](toolkit::ComboBox::Change change) {
        if (change == toolkit::ComboBox::Change::Selection) {
            selections.push_back(window.combo_type.indexOfSelectedItem());
        }
    };
    window.combo_type.choose(3);
    EXPECT_THAT(selections, ElementsAre(3, 2, 3));
    EXPECT_EQ(state.sysData, before);
}

TEST_F(PropertyBoxes, ASecondBlankInTheTypeBoxIsABlankToo) {
    edit(0, 3);
    window.combo_type.addItemWithObjectValue(toolkit::blankEntry);
    window.combo_type.addItemWithObjectValue(toolkit::blankEntry);
    const Image before = state.sysData;
    window.combo_type.choose(4);
    EXPECT_EQ(state.sysData, before);
    EXPECT_EQ(window.combo_type.indexOfSelectedItem(), 0);
    EXPECT_EQ(state.selection.select_type, 0);
}

TEST(KindOfAStatusByte, IsComputedFromBits1And2) {
    EXPECT_EQ(mainController::TypOxOX_2Index(0x09), 0);
    EXPECT_EQ(mainController::TypOxOX_2Index(0x0B), 1);
    EXPECT_EQ(mainController::TypOxOX_2Index(0x0C), 2);
    EXPECT_EQ(mainController::TypOxOX_2Index(0x0E), 1);
    EXPECT_EQ(mainController::TypOxOX_2Index(0x19), 0);
    for (int status = 0; status < 256; ++status) {
        constexpr std::array<int, 4> results = {0, 1, 2, 1};
        EXPECT_EQ(mainController::TypOxOX_2Index(status),
                  results.at(static_cast<std::size_t>((status / 2) % 4)));
    }
}

// The write path of the pad editor.

class PadWriters : public UserDefinedTest {
protected:
    /// Runs `write` and expects one byte of the image to have changed, and nothing else.
    template <typename Write>
    void expectOnly(std::size_t at, int value, Write write) {
        Image expected = state.sysData;
        expected.at(at) = static_cast<std::uint8_t>(value);
        write();
        EXPECT_EQ(state.sysData, expected);
        EXPECT_EQ(state.bChange, 0);
    }
};

TEST_F(PadWriters, EachWritesItsByte) {
    expectOnly(254 * 2 + 87 + 70, 99, [&] { controller.setPaCc_domal(2, 70, 99); });
    expectOnly(254 * 3 + 7 + 65, 12, [&] { controller.setPaChan_domal(3, 65, 12); });
    expectOnly(254 * 1 + 249, 75, [&] { controller.setPaIntrvl_domal(1, 75); });
}

TEST_F(PadWriters, TheCurveIsStoredInAFormOfItsOwn) {
    struct Case {
        int value;
        int stored;
    };
    for (const Case& given : {Case{0, 0}, Case{3, 3}, Case{4, 0x44}, Case{5, 0x54}, Case{9, 0x94},
                              Case{10, 127}, Case{11, 0xB4}, Case{16, 0x04}}) {
        expectOnly(254 * 2 + 247, given.stored,
                   [&] { controller.setPaCurv_domal(2, given.value); });
    }
}

}  // namespace
}  // namespace editor
