#include "qt/widgets/ComboBoxView.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <array>
#include <memory>

#include "support/countedMemory.h"
#include "support/windows/hands.h"
#include "tables/data.h"
#include "texts/List.h"

namespace qt::widgets {
namespace {

using namespace std::string_view_literals;
using toolkit::ComboBox;

constexpr std::array fruit = {"Apple"sv, "Pear"sv, "Quince"sv, "Plum"sv};
constexpr std::array trees = {"Oak"sv, "Elm"sv};

/// A box with fruit, shown, and what its handler saw.
struct Fixture {
    Fixture() {
        model.addItemsWithObjectValues(fruit);
        model.onChoice = [this] { choices.push_back(model.indexOfSelectedItem()); };
        view = std::make_unique<ComboBoxView>(model, &frame);
        frame.show();
        view->show();
        frame.activateWindow();
        (void)QTest::qWaitForWindowActive(&frame);
        view->setFocus();
    }

    ComboBox model;
    std::vector<int> choices;
    QWidget frame;
    std::unique_ptr<ComboBoxView> view;
};

void rollWheelOver(QWidget& widget) {
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

TEST(ComboBoxView, ShowsItemsSelectionAndEnabledFromTheStart) {
    ComboBox model;
    model.addItemsWithObjectValues(fruit);
    model.selectItemAtIndex(2);
    model.setEnabled(false);
    const ComboBoxView view(model);
    EXPECT_EQ(view.count(), 4);
    EXPECT_EQ(view.itemText(3), QStringLiteral("Plum"));
    EXPECT_EQ(view.currentText(), QStringLiteral("Quince"));
    EXPECT_FALSE(view.isEnabled());
}

TEST(ComboBoxView, ShowsNothingWhileNothingIsSelected) {
    Fixture box;
    EXPECT_EQ(box.view->currentIndex(), -1);
    EXPECT_EQ(box.view->currentText(), QString());
    box.model.selectItemAtIndex(1);
    EXPECT_EQ(box.view->currentText(), QStringLiteral("Pear"));
    box.model.selectItemAtIndex(99);
    EXPECT_EQ(box.view->currentIndex(), -1);
}

TEST(ComboBoxView, SelectsNothingByItselfWhenItemsComeAndGo) {
    Fixture box;
    box.model.selectItemAtIndex(0);
    box.model.removeAllItems();
    EXPECT_EQ(box.view->count(), 0);
    EXPECT_EQ(box.view->currentIndex(), -1);
    box.model.addItemsWithObjectValues(trees);
    EXPECT_EQ(box.view->itemText(1), QStringLiteral("Elm"));
    EXPECT_EQ(box.view->currentIndex(), -1);
    EXPECT_EQ(box.model.indexOfSelectedItem(), -1);
    EXPECT_TRUE(box.choices.empty());
}

TEST(ComboBoxView, KeepsShowingTheSelectionWhenAnItemIsAppended) {
    Fixture box;
    box.model.selectItemAtIndex(2);
    box.model.addItemWithObjectValue(toolkit::blankEntry);
    EXPECT_EQ(box.view->currentIndex(), 2);
    EXPECT_EQ(box.view->count(), 5);
    EXPECT_EQ(box.view->itemText(4), QString());
    box.model.selectItemAtIndex(4);
    EXPECT_EQ(box.view->currentIndex(), 4);
    EXPECT_EQ(box.view->currentText(), QString());
}

TEST(ComboBoxView, RunsNoHandlerWhenTheProgramSelects) {
    Fixture box;
    box.model.selectItemAtIndex(1);
    box.model.removeAllItems();
    box.model.addItemsWithObjectValues(trees);
    box.model.selectItemAtIndex(1);
    EXPECT_TRUE(box.choices.empty());
}

TEST(ComboBoxView, PassesAPickFromThePopUpToTheModel) {
    Fixture box;
    support::hands::choose(*box.view, 2);
    EXPECT_EQ(box.choices, std::vector<int>{2});
    EXPECT_EQ(box.view->currentText(), QStringLiteral("Quince"));
}

TEST(ComboBoxView, PassesAPickOfTheMouseFromThePopUpToTheModel) {
    Fixture box;
    QTest::mouseClick(box.view.get(), Qt::LeftButton);
    QAbstractItemView* list = box.view->view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(list->window()));
    QTest::qWait(QApplication::doubleClickInterval() + 50);  // a click right after is the same one
    const QRect place = list->visualRect(list->model()->index(3, 0));
    QTest::mouseMove(list->viewport(), place.center());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(box.choices, std::vector<int>{3});
}

TEST(ComboBoxView, PassesAPickByArrowKey) {
    Fixture box;
    QTest::keyClick(box.view.get(), Qt::Key_Down);
    EXPECT_EQ(box.choices, (std::vector<int>{0}));
}

void type(QWidget& widget, const char* text) {
    QTest::keyClicks(&widget, QString::fromLatin1(text));
}

/// Types into the box, then into the list that has opened, as the focus goes.
void search(ComboBoxView& view, const char* text) {
    type(view, std::string(text, 1).c_str());
    ASSERT_TRUE(view.view()->isVisible());
    type(*view.view(), text + 1);
}

TEST(ComboBoxView, ChoosesWhatWasSearchedForOnEnterAndNotBefore) {
    Fixture box;
    box.model.removeAllItems();
    box.model.addItemsWithObjectValues(tables::data::CC());
    search(*box.view, "sus");
    EXPECT_EQ(box.choices, std::vector<int>());
    EXPECT_EQ(box.view->view()->currentIndex().row(), 64);
    QTest::keyClick(box.view->view(), Qt::Key_Enter);
    EXPECT_EQ(box.choices, std::vector<int>{64});
    EXPECT_EQ(box.view->currentIndex(), 64);
}

TEST(ComboBoxView, FindsANoteByItsNumberAndByItsName) {
    Fixture box;
    box.model.removeAllItems();
    box.model.addItemsWithObjectValues(tables::data::Note());
    search(*box.view, "60");
    EXPECT_EQ(box.view->view()->currentIndex().row(), 60);
    QTest::keyClick(box.view->view(), Qt::Key_Escape);
    EXPECT_EQ(box.choices, std::vector<int>());
    EXPECT_EQ(box.view->currentIndex(), -1);
    QTest::qWait(2 * QApplication::keyboardInputInterval() + 50);  // a new word
    search(*box.view, "5(c");
    EXPECT_EQ(box.view->view()->currentIndex().data().toString().left(4), QStringLiteral("5(C)"));
}

TEST(ComboBoxView, OpensALongListAtTheCurrentEntry) {
    Fixture box;
    box.model.removeAllItems();
    box.model.addItemsWithObjectValues(tables::data::CC());
    box.model.selectItemAtIndex(100);
    box.view->showPopup();
    const QAbstractItemView& list = *box.view->view();
    EXPECT_EQ(list.currentIndex().row(), 100);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
}

TEST(ComboBoxView, RunsNoHandlerWhenTheSelectedItemIsPickedAgain) {
    Fixture box;
    box.model.selectItemAtIndex(2);
    support::hands::choose(*box.view, 2);
    EXPECT_TRUE(box.choices.empty());
}

TEST(ComboBoxView, ShowsWhatTheHandlerMadeOfTheChoice) {
    Fixture box;
    box.model.selectItemAtIndex(0);
    box.model.onChoice = [&box] { box.model.selectItemAtIndex(0); };
    support::hands::choose(*box.view, 3);
    EXPECT_EQ(box.view->currentText(), QStringLiteral("Apple"));
}

TEST(ComboBoxView, ShowsTheNewListWhenTheHandlerRefillsIt) {
    Fixture box;
    box.model.onChoice = [&box] {
        box.model.removeAllItems();
        box.model.addItemsWithObjectValues(trees);
        box.model.selectItemAtIndex(0);
    };
    support::hands::choose(*box.view, 3);
    EXPECT_EQ(box.view->count(), 2);
    EXPECT_EQ(box.view->currentText(), QStringLiteral("Oak"));
}

TEST(ComboBoxView, CannotBeTypedInto) {
    const Fixture box;
    EXPECT_FALSE(box.view->isEditable());
    EXPECT_EQ(box.view->lineEdit(), nullptr);
}

TEST(ComboBoxView, IgnoresTheWheelUnlessItHasTheFocus) {
    Fixture box;
    box.model.selectItemAtIndex(1);
    box.view->clearFocus();
    ASSERT_FALSE(box.view->hasFocus());
    rollWheelOver(*box.view);
    EXPECT_FALSE(box.view->hasFocus()) << "the wheel gives no focus";
    EXPECT_EQ(box.model.indexOfSelectedItem(), 1);
    EXPECT_TRUE(box.choices.empty());
    box.view->setFocus();
    ASSERT_TRUE(box.view->hasFocus());
    rollWheelOver(*box.view);
    EXPECT_EQ(box.choices, std::vector<int>{2});
}

TEST(ComboBoxView, ClosesThePopUpWhenTheItemsChange) {
    Fixture box;
    box.view->showPopup();
    ASSERT_TRUE(box.view->view()->isVisible());
    box.model.removeAllItems();
    EXPECT_FALSE(box.view->view()->isVisible());
    box.model.addItemsWithObjectValues(trees);
    EXPECT_TRUE(box.choices.empty());
}

TEST(ComboBoxView, KeepsThePopUpOpenWhenOnlyTheSelectionChanges) {
    Fixture box;
    box.view->showPopup();
    box.model.selectItemAtIndex(1);
    EXPECT_TRUE(box.view->view()->isVisible());
    box.view->hidePopup();
}

TEST(ComboBoxView, OpensAPopUpThatCutsNoItemAndFitsTheScreen) {
    ComboBox model;
    model.addItemsWithObjectValues(tables::data::ND());
    ComboBoxView view(model);
    view.setFixedWidth(60);
    view.show();
    view.showPopup();
    const QAbstractItemView* list = view.view();
    EXPECT_GE(list->viewport()->width(), list->sizeHintForColumn(0));
    EXPECT_LE(list->window()->height(), 17 * list->sizeHintForRow(0) + 8) << "16 items at once";
    view.hidePopup();
}

TEST(ComboBoxView, GoesGreyAndTakesNoPickWhileDisabled) {
    Fixture box;
    box.model.setEnabled(false);
    EXPECT_FALSE(box.view->isEnabled());
    box.view->setCurrentIndex(2);  // as from a pop-up that was open before
    box.view->activated(2);
    EXPECT_EQ(box.view->currentIndex(), -1);
    EXPECT_TRUE(box.choices.empty());
    box.model.setEnabled(true);
    EXPECT_TRUE(box.view->isEnabled());
}

TEST(ComboBoxView, FillsWithALongListAtTheCostOfAShortOne) {
    ComboBox model;
    ComboBoxView view(model);
    view.show();
    const auto costOf = [&model](texts::List list) {
        model.removeAllItems();
        const std::size_t before = support::allocationCount();
        model.addItemsWithObjectValues(list);
        model.selectItemAtIndex(1);
        return support::allocationCount() - before;
    };
    costOf(trees);  // whatever is made once is made now
    costOf(tables::data::CC());
    const std::size_t ofTwo = costOf(trees);
    const std::size_t of128 = costOf(tables::data::CC());
    EXPECT_LE(of128, ofTwo + 16);
}

TEST(ComboBoxView, LeavesAModelThatOutlivesIt) {
    Fixture box;
    EXPECT_TRUE(box.model.onChange);
    box.view.reset();
    EXPECT_FALSE(box.model.onChange);
    box.model.removeAllItems();
}

TEST(ComboBoxView, OutlivesItsModel) {
    auto model = std::make_unique<ComboBox>();
    model->addItemsWithObjectValues(fruit);
    model->selectItemAtIndex(1);
    ComboBoxView view(*model);
    view.show();
    model.reset();
    EXPECT_EQ(view.count(), 0);
    view.repaint();
    QTest::keyClick(&view, Qt::Key_Down);
}

TEST(ComboBoxView, ShowsTextsOutsideAscii) {
    ComboBox model;
    model.addItemWithObjectValue("Gr\xC3\xBC\xC3\x9F");
    const ComboBoxView view(model);
    EXPECT_EQ(view.itemText(0), QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"));
}

}  // namespace
}  // namespace qt::widgets
