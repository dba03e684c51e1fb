#include "qt/desktop/QtDesktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "support/windows/hands.h"

namespace qt::desktop {
namespace {

using support::hands::press;
using support::hands::whenDialogOpens;
using toolkit::AlertAnswer;

/// A window that ends its modal run when it closes, as all of them do.
class Controller : public toolkit::WindowController {
public:
    explicit Controller(toolkit::Desktop& desktop) : desktop_(desktop) {}
    void windowWillClose() override { desktop_.stopModal(); }

private:
    toolkit::Desktop& desktop_;
};

class OtherController final : public Controller {
public:
    using Controller::Controller;
};

/// A window that is not modal.
class Plain final : public toolkit::WindowController {
public:
    void windowWillClose() override {}
};

class View final : public widgets::DialogView {
public:
    View(toolkit::WindowController& controller, const QString& title)
        : widgets::DialogView(controller, title) {}
};

class QtDesktopTest : public testing::Test {
protected:
    QtDesktopTest() {
        desktop.addView<Controller>([this](Controller& controller) {
            ++viewsBuilt;
            return std::make_unique<View>(controller, QStringLiteral("First"));
        });
        desktop.addView<Plain>([this](Plain& controller) {
            ++viewsBuilt;
            return std::make_unique<View>(controller, QStringLiteral("Plain"));
        });
    }

    std::vector<int> exits;
    QtDesktop desktop{[this](int status) { exits.push_back(status); }};
    int viewsBuilt = 0;
};

TEST_F(QtDesktopTest, ShowsAnAlertWithExactlyItsTexts) {
    whenDialogOpens(QStringLiteral(" Tormelk Wyro"), [](QDialog& dialog) {
        const auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text(), QStringLiteral("Send  Done <b>"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.informativeText(), QString());
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons().constFirst()->text(), QStringLiteral("OK"));
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        press(dialog, Qt::Key_Enter);
    });
    EXPECT_EQ(desktop.runAlertPanel({" Tormelk Wyro", "Send  Done <b>"}), AlertAnswer::Default);
}

TEST_F(QtDesktopTest, ShowsTheProgramsIconBesideAnAlert) {
    QPixmap icon(64, 64);
    icon.fill(Qt::red);
    QApplication::setWindowIcon(QIcon(icon));
    whenDialogOpens(QStringLiteral("A"), [](QDialog& dialog) {
        const QPixmap shown = dynamic_cast<QMessageBox&>(dialog).iconPixmap();
        EXPECT_FALSE(shown.isNull());
        EXPECT_EQ(shown.toImage().pixelColor(shown.width() / 2, shown.height() / 2),
                  QColor(Qt::red));
        press(dialog, Qt::Key_Enter);
    });
    desktop.runAlertPanel({"A", "text"});
    QApplication::setWindowIcon({});
}

TEST_F(QtDesktopTest, TakesEscapeForTheOnlyAnswerOfAnAlertWithOneButton) {
    whenDialogOpens(QStringLiteral("A"), [](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop.runAlertPanel({"A", "text"}), AlertAnswer::Default);
    whenDialogOpens(QStringLiteral("A"), [](QDialog& dialog) { dialog.close(); });
    EXPECT_EQ(desktop.runAlertPanel({"A", "text"}), AlertAnswer::Default);
}

struct Answer {
    std::function<void(QDialog&)> given;
    AlertAnswer expected;
};

TEST_F(QtDesktopTest, KnowsTheAnswerToAnAlertWithTwoButtons) {
    const auto clickButton = [](const QString& caption) {
        return [caption](QDialog& dialog) {
            for (QAbstractButton* button : dynamic_cast<QMessageBox&>(dialog).buttons()) {
                if (button->text() == caption) {
                    QTest::mouseClick(button, Qt::LeftButton);
                    return;
                }
            }
            FAIL() << "no button " << caption.toStdString();
        };
    };
    const std::vector<Answer> answers = {
        {clickButton(QStringLiteral("Load")), AlertAnswer::Default},
        {clickButton(QStringLiteral("Cancel")), AlertAnswer::Alternate},
        {[](QDialog& dialog) { press(dialog, Qt::Key_Enter); }, AlertAnswer::Default},
        {[](QDialog& dialog) { press(dialog, Qt::Key_Escape); }, AlertAnswer::Alternate},
        {[](QDialog& dialog) { dialog.close(); }, AlertAnswer::Alternate},
    };
    for (const Answer& answer : answers) {
        whenDialogOpens(QStringLiteral("Tormelk Wyro"), answer.given);
        EXPECT_EQ(desktop.runAlertPanel({"Tormelk Wyro", "Sure?", "Load", "Cancel"}),
                  answer.expected);
    }
}

TEST_F(QtDesktopTest, RunsAWindowModallyUntilItCloses) {
    Controller controller(desktop);
    bool returned = false;
    whenDialogOpens(QStringLiteral("First"), [&](QDialog& dialog) {
        EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
        EXPECT_FALSE(returned);
        dialog.close();
    });
    EXPECT_EQ(desktop.runModalForWindow(controller), toolkit::Desktop::modalStopped);
    returned = true;
    EXPECT_FALSE(controller.window().isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QtDesktopTest, ClosesAModalWindowOnEscape) {
    Controller controller(desktop);
    whenDialogOpens(QStringLiteral("First"),
                    [](QDialog& dialog) { press(dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop.runModalForWindow(controller), toolkit::Desktop::modalStopped);
    EXPECT_FALSE(controller.window().isVisible());
}

TEST_F(QtDesktopTest, TakesAModalWindowAwayThatWasOnlyStopped) {
    Controller controller(desktop);
    whenDialogOpens(QStringLiteral("First"), [this](QDialog&) { desktop.stopModal(); });
    EXPECT_NE(desktop.runModalForWindow(controller), 0);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        EXPECT_FALSE(widget->isVisible());
    }
}

TEST_F(QtDesktopTest, AnswersZeroForAWindowItHasNoViewFor) {
    OtherController unknown(desktop);
    EXPECT_EQ(desktop.runModalForWindow(unknown), 0);
    EXPECT_FALSE(unknown.window().isVisible());
    desktop.showWindow(unknown);
    EXPECT_FALSE(unknown.window().isVisible());
}

TEST_F(QtDesktopTest, EndsTheInnermostModalRunFirst) {
    Controller outer(desktop);
    OtherController inner(desktop);
    desktop.addView<OtherController>([](OtherController& controller) {
        return std::make_unique<View>(controller, QStringLiteral("Second"));
    });
    std::vector<std::string> order;
    whenDialogOpens(QStringLiteral("First"), [&](QDialog& first) {
        whenDialogOpens(QStringLiteral("Second"), [&](QDialog& second) {
            second.close();
            order.emplace_back("second closed");
        });
        EXPECT_NE(desktop.runModalForWindow(inner), 0);
        order.emplace_back("inner ended");
        EXPECT_TRUE(first.isVisible());
        first.close();
    });
    EXPECT_NE(desktop.runModalForWindow(outer), 0);
    order.emplace_back("outer ended");
    EXPECT_EQ(order, (std::vector<std::string>{"second closed", "inner ended", "outer ended"}));
}

TEST_F(QtDesktopTest, EndsARunThatWasStoppedBeforeItsLoopBegan) {
    /// Closes as soon as it is shown.
    class Impatient final : public toolkit::WindowController {
    public:
        explicit Impatient(QtDesktop& desktop) : desktop_(desktop) {}
        void windowWillClose() override { desktop_.stopModal(); }

    private:
        QtDesktop& desktop_;
    };
    class ImpatientView final : public widgets::DialogView {
    public:
        explicit ImpatientView(toolkit::WindowController& controller)
            : widgets::DialogView(controller, QStringLiteral("Impatient")) {}

    protected:
        void showEvent(QShowEvent*) override { reject(); }
    };
    desktop.addView<Impatient>(
        [](Impatient& controller) { return std::make_unique<ImpatientView>(controller); });
    Impatient controller(desktop);
    EXPECT_NE(desktop.runModalForWindow(controller), 0);
}

TEST_F(QtDesktopTest, DoesNothingWhenThereIsNoModalRunToStop) {
    desktop.stopModal();
    Controller controller(desktop);
    bool open = false;
    whenDialogOpens(QStringLiteral("First"), [&open](QDialog& dialog) {
        open = true;
        dialog.close();
    });
    desktop.runModalForWindow(controller);
    EXPECT_TRUE(open) << "the stop before the run must not end it";
}

TEST_F(QtDesktopTest, ShowsTheSameWindowWhenItIsAskedForTwice) {
    Plain controller;
    desktop.showWindow(controller);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }, 1000));
    QWidget* first = QApplication::activeWindow();
    EXPECT_EQ(first->windowModality(), Qt::NonModal);
    desktop.showWindow(controller);
    EXPECT_EQ(QApplication::activeWindow(), first);
    EXPECT_EQ(viewsBuilt, 1);
    first->close();
    EXPECT_FALSE(first->isVisible());
    desktop.showWindow(controller);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(viewsBuilt, 1);
}

TEST_F(QtDesktopTest, BuildsANewViewForANewControllerInThePlaceOfAnOldOne) {
    alignas(Plain) std::array<std::byte, sizeof(Plain)> place{};
    auto* first = new (place.data()) Plain;
    desktop.showWindow(*first);
    first->~Plain();
    auto* second = new (place.data()) Plain;
    desktop.showWindow(*second);
    EXPECT_EQ(viewsBuilt, 2);
    EXPECT_TRUE(second->window().isVisible());
    second->~Plain();
}

TEST_F(QtDesktopTest, CallsForTheMainWindowWhenTheLastWindowIsClosed) {
    int calls = 0;
    const auto registration = desktop.onLastWindowClosed([&calls] { ++calls; });
    Plain controller;
    desktop.showWindow(controller);
    controller.window().close();
    EXPECT_TRUE(QTest::qWaitFor([&calls] { return calls > 0; }, 1000));
    EXPECT_EQ(calls, 1);
}

TEST_F(QtDesktopTest, DoesNotCallWhileAnotherWindowIsOpen) {
    int calls = 0;
    const auto registration = desktop.onLastWindowClosed([&calls] { ++calls; });
    QWidget other;
    other.show();
    Plain controller;
    desktop.showWindow(controller);
    controller.window().close();
    QTest::qWait(20);
    EXPECT_EQ(calls, 0);
}

TEST_F(QtDesktopTest, DoesNotCallInTheMiddleOfAModalRun) {
    int calls = 0;
    const auto registration = desktop.onLastWindowClosed([&calls] { ++calls; });
    Plain plain;
    Controller controller(desktop);
    desktop.showWindow(plain);
    whenDialogOpens(QStringLiteral("First"), [&](QDialog& dialog) {
        plain.window().close();
        dialog.hide();  // no window is to be seen now, but the run goes on
        QTest::qWait(20);
        EXPECT_EQ(calls, 0);
        desktop.stopModal();
    });
    desktop.runModalForWindow(controller);
}

TEST_F(QtDesktopTest, CallsEveryoneWhoStillWantsToKnowOfTheLastWindow) {
    int firstCalls = 0;
    int secondCalls = 0;
    std::optional first(desktop.onLastWindowClosed([&firstCalls] { ++firstCalls; }));
    const auto second = desktop.onLastWindowClosed([&secondCalls] { ++secondCalls; });
    Plain controller;
    desktop.showWindow(controller);
    controller.window().close();
    EXPECT_TRUE(QTest::qWaitFor([&secondCalls] { return secondCalls == 1; }, 1000));
    EXPECT_EQ(firstCalls, 1);

    first.reset();
    controller.window().makeKeyAndOrderFront();
    controller.window().close();
    EXPECT_TRUE(QTest::qWaitFor([&secondCalls] { return secondCalls == 2; }, 1000));
    EXPECT_EQ(firstCalls, 1);
}

TEST_F(QtDesktopTest, DoesNotEndTheProgramWithItsLastWindow) {
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
}

TEST_F(QtDesktopTest, PassesTheExitStatusOn) {
    desktop.exit(0);
    desktop.exit(3);
    EXPECT_EQ(exits, (std::vector<int>{0, 3}));
}

using QtDesktopDeathTest = QtDesktopTest;

TEST_F(QtDesktopDeathTest, EndsTheProcessAtOnceWithTheStatus) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            QtDesktop real;
            QTimer::singleShot(0, qApp, [&real] { real.exit(7); });
            QApplication::exec();
        },
        testing::ExitedWithCode(7), "");
}

TEST_F(QtDesktopTest, SleepsNeverShorterThanAsked) {
    const auto start = std::chrono::steady_clock::now();
    desktop.sleepForTimeInterval(std::chrono::duration<double>(0.002));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2));
}

}  // namespace
}  // namespace qt::desktop
