#include "qt/InputShield.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace qt {
namespace {

/// A window with everything a person can act on; it counts what got through.
class InputShieldTest : public testing::Test {
protected:
    InputShieldTest() {
        window.setCentralWidget(&button);
        QAction* item = window.menuBar()
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

    QMainWindow window;
    QPushButton& button = *new QPushButton;
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
}  // namespace qt
