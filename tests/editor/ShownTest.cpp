#include "editor/Shown.h"

#include <gtest/gtest.h>

#include "editor/TestEditor.h"
#include "tables/data.h"

namespace editor {
namespace {

TEST(ShortText, HoldsAText) {
    EXPECT_EQ(ShortText().view(), "");
    EXPECT_EQ(ShortText("Tormelk Wyro").view(), "Tormelk Wyro");
    EXPECT_EQ(ShortText("one"), ShortText("one"));
    EXPECT_NE(ShortText("one"), ShortText("two"));
}

TEST(ShortText, CutsWhatIsTooLong) {
    EXPECT_EQ(ShortText(std::string(100, 'a')).view(), std::string(ShortText::limit, 'a'));
}

class ShownBoxTest : public testing::Test {
protected:
    ShownBoxTest() {
        box.addItemsWithObjectValues(tables::data::Chan());
        box.addItemWithObjectValue(toolkit::blankEntry);
        box.selectItemAtIndex(16);
        box.setEnabled(false);
        box.onChange = [this](toolkit::ComboBox::Change change) {
            ++told;
            items += change == toolkit::ComboBox::Change::Items ? 1 : 0;
        };
    }
    /// Whether a box that shows something else shows this one's part afterwards.
    void expectShownBy(toolkit::ComboBox& other) {
        show(shownBy(box), other);
        EXPECT_EQ(itemsOf(other), itemsOf(box));
        EXPECT_EQ(other.indexOfSelectedItem(), box.indexOfSelectedItem());
        EXPECT_EQ(other.isEnabled(), box.isEnabled());
    }

    toolkit::ComboBox box;
    int told = 0;
    int items = 0;
};

TEST_F(ShownBoxTest, IsShownByAnyOtherBox) {
    toolkit::ComboBox empty;
    expectShownBy(empty);
    toolkit::ComboBox withAnotherList;
    withAnotherList.addItemsWithObjectValues(tables::data::Note());
    withAnotherList.selectItemAtIndex(100);
    expectShownBy(withAnotherList);
    toolkit::ComboBox withoutBlank;
    withoutBlank.addItemsWithObjectValues(tables::data::Chan());
    expectShownBy(withoutBlank);
    toolkit::ComboBox withMoreBlanks;
    withMoreBlanks.addItemsWithObjectValues(tables::data::Chan());
    withMoreBlanks.addItemWithObjectValue(toolkit::blankEntry);
    withMoreBlanks.addItemWithObjectValue(toolkit::blankEntry);
    expectShownBy(withMoreBlanks);
    box.removeAllItems();
    expectShownBy(withMoreBlanks);
}

TEST_F(ShownBoxTest, TellsNoViewWhereItIsShownAlready) {
    show(shownBy(box), box);
    EXPECT_EQ(told, 0);
}

TEST_F(ShownBoxTest, KeepsTheItemsWhereOnlyTheSelectionDiffers) {
    ShownBox shown = shownBy(box);
    shown.selected = 3;
    show(shown, box);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(items, 0);
}

TEST(ShownMainWindow, HasEveryWidgetThatShowsTheConfiguration) {
    TestEditor editor;
    MainWindow& window = editor.window;
    const Shown shown = shownBy(window);
    const auto expectSeen = [&](const char* what, auto change) {
        change();
        EXPECT_NE(shownBy(window), shown) << what;
        show(shown, window);
        EXPECT_EQ(shownBy(window), shown) << what;
    };
    expectSeen("key", [&] { window.keysOrderedByTag[73].setState(1); });
    expectSeen("key", [&] { window.keysOrderedByTag[0].setEnabled(false); });
    expectSeen("mode layer", [&] { window.moLaCtrls[3].setState(1); });
    expectSeen("pad layer", [&] { window.paLaCtrls[0].setEnabled(false); });
    expectSeen("lock", [&] { window.locker.setState(1 - window.locker.state()); });
    expectSeen("trigger", [&] { window.trigger.setState(1 - window.trigger.state()); });
    for (toolkit::ComboBox* box : {&window.combo_mode, &window.combo_type, &window.combo_chan,
                                   &window.combo_cc, &window.combo_trig}) {
        expectSeen("box", [&] { box->setEnabled(!box->isEnabled()); });
        expectSeen("box", [&] { box->addItemWithObjectValue(toolkit::blankEntry); });
        expectSeen("box", [&] { box->selectItemAtIndex(box->indexOfSelectedItem() == 2 ? 1 : 2); });
    }
    expectSeen("caption", [&] { window.mode_info.setStringValue("CC Number"); });
    expectSeen("title", [&] { window.window.setTitle("another"); });
}

}  // namespace
}  // namespace editor
