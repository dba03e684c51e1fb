// What assistive technology is told of the boxes' lists.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <array>
#include <string_view>

#include "qt/widgets/ComboBoxView.h"

namespace tests {
namespace {

constexpr std::array<std::string_view, 3> triggers = {"Momentary", "Toggle", "All Toggle"};
constexpr std::array<std::string_view, 1> single = {"Only"};

class ChoiceAccess : public testing::Test {
protected:
    ChoiceAccess() {
        model.addItemsWithObjectValues(triggers);
        model.selectItemAtIndex(0);
    }

    static QAccessibleInterface& of(QWidget& widget) {
        return *QAccessible::queryAccessibleInterface(&widget);
    }
    QAccessibleInterface& list() { return of(*box.view()); }
    static void press(QAccessibleInterface& item) {
        item.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }

    toolkit::ComboBox model;
    qt::widgets::ComboBoxView box{model};
};

TEST_F(ChoiceAccess, FindsEveryItemByItsNameInTheClosedBox) {
    QAccessibleInterface* found = of(box).child(0);
    ASSERT_EQ(found, &list());
    EXPECT_EQ(found->role(), QAccessible::List);
    EXPECT_EQ(found->parent(), &of(box));
    ASSERT_EQ(found->childCount(), 3);
    int row = 0;
    for (const std::string_view name : triggers) {
        QAccessibleInterface* item = found->child(row);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->role(), QAccessible::ListItem);
        EXPECT_EQ(item->text(QAccessible::Name).toStdString(), name);
        EXPECT_EQ(item->parent(), found);
        EXPECT_EQ(found->indexOfChild(item), row);
        EXPECT_EQ(item->state().selected, row == 0);
        ++row;
    }
    EXPECT_EQ(found->child(3), nullptr);
    EXPECT_EQ(found->child(-1), nullptr);
}

TEST_F(ChoiceAccess, ChoosesAnItemByItsActionAfterItHasAnswered) {
    int chosen = -1;
    model.onChoice = [&] { chosen = model.indexOfSelectedItem(); };
    press(*list().child(2));
    EXPECT_EQ(chosen, -1);
    QApplication::processEvents();
    EXPECT_EQ(chosen, 2);
    EXPECT_EQ(model.indexOfSelectedItem(), 2);
    EXPECT_TRUE(list().child(2)->state().selected);
    EXPECT_FALSE(list().child(0)->state().selected);
}

TEST_F(ChoiceAccess, ChoosingInTheOpenListClosesIt) {
    box.show();
    (void)QTest::qWaitForWindowActive(&box);
    box.showPopup();
    EXPECT_FALSE(list().child(1)->state().invisible);
    press(*list().child(1));
    QApplication::processEvents();
    EXPECT_FALSE(box.view()->isVisible());
    EXPECT_EQ(model.indexOfSelectedItem(), 1);
}

TEST_F(ChoiceAccess, TellsWhichItemOfTheOpenListHasTheFocus) {
    box.show();
    (void)QTest::qWaitForWindowActive(&box);
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Down);
    ASSERT_NE(list().focusChild(), nullptr);
    EXPECT_EQ(list().focusChild()->text(QAccessible::Name), QStringLiteral("Toggle"));
    EXPECT_TRUE(list().child(1)->state().focused);
    EXPECT_FALSE(list().child(0)->state().focused);
    EXPECT_TRUE(list().child(0)->state().selected) << "nothing is chosen yet";
    box.hidePopup();
}

TEST_F(ChoiceAccess, OffersNoChoiceInABoxThatIsSwitchedOff) {
    model.setEnabled(false);
    QAccessibleInterface* item = list().child(2);
    EXPECT_TRUE(item->state().disabled);
    EXPECT_TRUE(item->actionInterface()->actionNames().isEmpty());
    press(*item);
    QApplication::processEvents();
    EXPECT_EQ(model.indexOfSelectedItem(), 0);
}

TEST_F(ChoiceAccess, KnowsOfItemsThatHaveGone) {
    QAccessibleInterface* last = list().child(2);
    press(*last);
    model.removeAllItems();
    model.addItemsWithObjectValues(single);
    QApplication::processEvents();
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->text(QAccessible::Name).isEmpty());
    EXPECT_NE(model.indexOfSelectedItem(), 2);
    EXPECT_EQ(list().childCount(), 1);
    EXPECT_EQ(list().child(0)->text(QAccessible::Name), QStringLiteral("Only"));
}

}  // namespace
}  // namespace tests
