#include "qt/desktop/InputShield.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <array>
#include <string_view>

#include "qt/widgets/ComboBoxView.h"

namespace qt::desktop {
namespace {

/// A window with everything a person can act on; it counts what got through.
class InputShieldTest : public testing::Test {
protected:
    InputShieldTest() {
        window.setCentralWidget(&button);
        item = window.menuBar()
                   ->addMenu(QStringLiteral("&File"))
                   ->addAction(QStringLiteral("&Send"), &window, [this] { ++acted; });
        item->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
        QObject::connect(&button, &QPushButton::clicked, &window, [this] { ++acted; });
        window.show();
    }
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&window)); }

    /// Clicks, types, uses a shortcut, opens the menu, and asks the window to close.
    void actOnEverything() {
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Space);
        QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
        QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
        window.windowHandle()->close();
        window.close();
    }

    /// What a screen reader does to press a button or an item of a menu.
    static void pressThroughAssistiveTechnology(QObject& what, const QString& action) {
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&what);
        ASSERT_NE(interface, nullptr);
        ASSERT_NE(interface->actionInterface(), nullptr);
        interface->actionInterface()->doAction(action);
    }
    void pressButton() {
        pressThroughAssistiveTechnology(button, QAccessibleActionInterface::pressAction());
    }
    /// An item, or a menu of the bar, is a child of what it stands in.
    static void actOnItem(QWidget& bar, int index, const QString& action) {
        QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&bar);
        ASSERT_NE(interface, nullptr);
        ASSERT_GT(interface->childCount(), index);
        interface->child(index)->actionInterface()->doAction(action);
    }
    void pressItem() {
        actOnItem(*qobject_cast<QWidget*>(item->associatedObjects().at(0)), 0,
                  QAccessibleActionInterface::pressAction());
    }

    QMainWindow window;
    QPushButton& button = *new QPushButton;
    QAction* item = nullptr;
    InputShield shield;
    int acted = 0;
};

TEST_F(InputShieldTest, LetsNothingThroughWhileItIsUp) {
    {
        const InputShield::Up up(shield);
        actOnEverything();
        QApplication::processEvents();
    }
    EXPECT_EQ(acted, 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "no menu";
}

TEST_F(InputShieldTest, HasKeptNothingWhenItIsDown) {
    {
        const InputShield::Up up(shield);
        actOnEverything();
    }
    QTest::qWait(30);
    EXPECT_EQ(acted, 0);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(InputShieldTest, LetsEverythingThroughAfterwards) {
    { const InputShield::Up up(shield); }
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(acted, 2);
    window.close();
    EXPECT_FALSE(window.isVisible());
}

/// Longer than a button pressed by assistive technology stays down.
constexpr int untilReleased = 300;  // ms

TEST_F(InputShieldTest, LetsNoPressOfAssistiveTechnologyThroughNorLater) {
    {
        const InputShield::Up up(shield);
        pressButton();
        pressItem();
        QApplication::processEvents();
        // From the event loop, as it is asked to, and right after the button was painted.
        QTimer::singleShot(0, &window, [this] {
            button.repaint();
            QTimer::singleShot(0, &window, [this] { pressButton(); });
        });
        QApplication::processEvents();
        QApplication::processEvents();
        // As the main window's commands are.
        QMetaObject::invokeMethod(item, &QAction::trigger, Qt::QueuedConnection);
    }
    QTest::qWait(untilReleased);
    EXPECT_EQ(acted, 0);
    EXPECT_FALSE(button.isDown());
}

TEST_F(InputShieldTest, LetsPressesOfAssistiveTechnologyThroughAfterwards) {
    { const InputShield::Up up(shield); }
    pressButton();
    pressItem();
    EXPECT_TRUE(QTest::qWaitFor([this] { return acted == 2; }));
}

TEST_F(InputShieldTest, LetsAssistiveTechnologyPickNothingFromABox) {
    constexpr std::array<std::string_view, 2> items = {"one", "two"};
    toolkit::ComboBox model;
    model.addItemsWithObjectValues(items);
    model.selectItemAtIndex(0);
    widgets::ComboBoxView box(model, &window);
    const auto pick = [&box] {
        actOnItem(*box.view(), 1, QAccessibleActionInterface::pressAction());
    };
    {
        const InputShield::Up up(shield);
        pick();
    }
    QApplication::processEvents();
    EXPECT_EQ(model.indexOfSelectedItem(), 0);
    pick();
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.indexOfSelectedItem() == 1; }));
}

TEST_F(InputShieldTest, LeavesNoMenuOpenThatAssistiveTechnologyAskedFor) {
    {
        const InputShield::Up up(shield);
        actOnItem(*window.menuBar(), 0, QAccessibleActionInterface::showMenuAction());
        QApplication::processEvents();
    }
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(InputShieldTest, LeavesAButtonThatWasSwitchedOffMeanwhileOff) {
    QPushButton other(&window);
    other.setEnabled(false);
    {
        const InputShield::Up up(shield);
        button.setEnabled(false);
        other.setEnabled(true);
    }
    EXPECT_FALSE(button.isEnabled());
    EXPECT_TRUE(other.isEnabled());
}

/// Remembers whether it was painted as one that can be pressed.
class Painted final : public QPushButton {
public:
    using QPushButton::QPushButton;
    int asEnabled = 0;
    int asDisabled = 0;

protected:
    void paintEvent(QPaintEvent* event) override {
        ++(isEnabled() ? asEnabled : asDisabled);
        QPushButton::paintEvent(event);
    }
};

TEST_F(InputShieldTest, LetsNothingLookSwitchedOff) {
    auto* const painted = new Painted(&window);
    auto* const off = new Painted(&window);
    off->setEnabled(false);
    painted->show();
    off->show();
    QApplication::processEvents();
    painted->asEnabled = 0;
    off->asDisabled = 0;
    const InputShield::Up up(shield);
    painted->update();
    off->update();
    QApplication::processEvents();
    EXPECT_EQ(painted->asEnabled, 1);
    EXPECT_EQ(painted->asDisabled, 0);
    EXPECT_EQ(off->asEnabled, 0);
    EXPECT_EQ(off->asDisabled, 1);
}

TEST_F(InputShieldTest, LetsWindowsPaint) {
    QApplication::processEvents();
    class Watch final : public QObject {
    public:
        int painted = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            painted += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } watch;
    button.installEventFilter(&watch);
    const InputShield::Up up(shield);
    button.update();
    QApplication::processEvents();
    EXPECT_EQ(watch.painted, 1);
}

}  // namespace
}  // namespace qt::desktop
