#include "qt/MessageView.h"

#include <gtest/gtest.h>

#include <QTest>

#include "app/Robot.h"
#include "qt/QtDesktop.h"
#include "qt/views.h"

namespace qt {
namespace {

using app::robot::click;
using app::robot::find;
using app::robot::press;

/// What stands in the answer before it is given.
constexpr std::uint8_t unanswered = 99;

std::uint8_t answerOf(std::function<void(QDialog&)> person) {
    QtDesktop desktop([](int) {});
    addEditorViews(desktop);
    std::uint8_t answer = unanswered;
    shell::message controller(desktop, answer);
    app::robot::whenDialogOpens(QStringLiteral("Firmware Update"), std::move(person));
    EXPECT_NE(desktop.runModalForWindow(controller), 0);
    EXPECT_FALSE(controller.window().isVisible());
    return answer;
}

TEST(MessageView, AnswersOneForOk) {
    EXPECT_EQ(answerOf([](QDialog& dialog) { click(find(dialog, "ok")); }), 1);
    EXPECT_EQ(answerOf([](QDialog& dialog) { press(dialog, Qt::Key_Return); }), 1);
}

TEST(MessageView, AnswersZeroForCancelAndForEscape) {
    EXPECT_EQ(answerOf([](QDialog& dialog) { click(find(dialog, "cancel")); }), 0);
    EXPECT_EQ(answerOf([](QDialog& dialog) { press(dialog, Qt::Key_Escape); }), 0);
}

TEST(MessageView, HasNoCloseBox) {
    answerOf([](QDialog& dialog) {
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowSystemMenuHint));
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::CustomizeWindowHint));
        click(find(dialog, "ok"));
    });
}

TEST(MessageView, LeavesTheAnswerAsItWasWhenItIsClosedAllTheSame) {
    EXPECT_EQ(answerOf([](QDialog& dialog) { dialog.close(); }), unanswered);
}

TEST(MessageView, KeepsItsLackOfACloseBoxOverAnotherWindow) {
    QWidget behind;
    behind.show();
    behind.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&behind));
    answerOf([&behind](QDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), &behind);
        EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        click(find(dialog, "ok"));
    });
}

}  // namespace
}  // namespace qt
