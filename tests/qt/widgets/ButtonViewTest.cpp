#include "qt/widgets/ButtonView.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QTest>
#include <memory>

namespace qt::widgets {
namespace {

using toolkit::Button;
using Kind = ButtonView::Kind;

TEST(ButtonView, ShowsStateAndEnabledOfItsButtonFromTheStart) {
    Button model(Button::Click::Lights);
    model.setState(1);
    model.setEnabled(false);
    const ButtonView view(model, Kind::State, QStringLiteral("Pad 1"));
    EXPECT_TRUE(view.isChecked());
    EXPECT_FALSE(view.isEnabled());
    EXPECT_EQ(view.text(), QStringLiteral("Pad 1"));
}

TEST(ButtonView, FollowsItsButton) {
    Button model(Button::Click::Lights);
    const ButtonView view(model, Kind::State, {});
    EXPECT_FALSE(view.isChecked());
    model.setState(1);
    EXPECT_TRUE(view.isChecked());
    model.setState(0);
    EXPECT_FALSE(view.isChecked());
    model.setEnabled(false);
    EXPECT_FALSE(view.isEnabled());
    model.setEnabled(true);
    EXPECT_TRUE(view.isEnabled());
}

TEST(ButtonView, PassesAClickOfTheMouseAndOfTheSpaceBarToItsButton) {
    Button model(Button::Click::Keeps, 7);
    int clicks = 0;
    model.action = [&clicks](Button& sender) {
        EXPECT_EQ(sender.tag(), 7);
        ++clicks;
    };
    ButtonView view(model, Kind::Command, QStringLiteral("OK"));
    view.show();
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
}

TEST(ButtonView, StaysLitWhenALitControlIsClickedAgain) {
    Button model(Button::Click::Lights);
    ButtonView view(model, Kind::State, {});
    view.show();
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_TRUE(view.isChecked());
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_TRUE(view.isChecked());
    EXPECT_EQ(model.state(), 1);
}

TEST(ButtonView, ShowsWhatTheActionMadeOfTheState) {
    Button model(Button::Click::Lights);
    model.action = [](Button& sender) { sender.setState(0); };
    ButtonView view(model, Kind::State, {});
    view.show();
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_FALSE(view.isChecked());
}

TEST(ButtonView, FlipsATwoStateButton) {
    Button model(Button::Click::Flips);
    ButtonView view(model, Kind::State, {});
    view.show();
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_TRUE(view.isChecked());
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_FALSE(view.isChecked());
    EXPECT_EQ(model.state(), 0);
}

TEST(ButtonView, TakesNoClickWhileDisabled) {
    Button model(Button::Click::Lights);
    model.setEnabled(false);
    int clicks = 0;
    model.action = [&clicks](Button&) { ++clicks; };
    ButtonView view(model, Kind::State, {});
    view.show();
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_EQ(clicks, 0);
    EXPECT_FALSE(view.isChecked());
}

TEST(ButtonView, CountsAToggleOfAssistiveTechnologyAsAClick) {
    Button model(Button::Click::Lights);
    int clicks = 0;
    model.action = [&clicks](Button&) { ++clicks; };
    ButtonView view(model, Kind::State, QStringLiteral("Pad 1"));
    view.show();
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(access, nullptr);
    ASSERT_NE(access->actionInterface(), nullptr);
    for (int time = 1; time <= 2; ++time) {
        access->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(clicks, time);
        EXPECT_TRUE(view.isChecked()) << "a lit control is not put out";
    }
}

TEST(ButtonView, IsACheckBoxToAScreenReaderOnlyWhereItCanBeLit) {
    Button model;
    ButtonView command(model, Kind::Command, {});
    ButtonView state(model, Kind::State, {});
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&command)->role(), QAccessible::PushButton);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&state)->role(), QAccessible::CheckBox);
}

TEST(ButtonView, LeavesAModelThatOutlivesIt) {
    Button model(Button::Click::Lights);
    auto view = std::make_unique<ButtonView>(model, Kind::State, QString());
    EXPECT_TRUE(model.onChange);
    view.reset();
    EXPECT_FALSE(model.onChange);
    model.setState(1);
    model.click();
}

TEST(ButtonView, OutlivesItsModel) {
    auto model = std::make_unique<Button>(Button::Click::Lights);
    ButtonView view(*model, Kind::State, {});
    view.show();
    model.reset();
    QTest::mouseClick(&view, Qt::LeftButton);
    EXPECT_FALSE(view.isChecked());
}

TEST(ButtonView, FallsSilentWhenItsModelGetsAnotherView) {
    Button model(Button::Click::Lights);
    auto old = std::make_unique<ButtonView>(model, Kind::State, QString());
    const ButtonView fresh(model, Kind::State, {});
    old.reset();
    model.setState(1);
    EXPECT_TRUE(fresh.isChecked());
}

TEST(ButtonView, MayBeDestroyedByTheActionItRuns) {
    Button model;
    auto view = std::make_unique<ButtonView>(model, Kind::Command, QString());
    view->show();
    ButtonView* clicked = view.get();
    model.action = [&view](Button&) { view.release()->deleteLater(); };
    QTest::mouseClick(clicked, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(model.onChange);
}

}  // namespace
}  // namespace qt::widgets
