#include "qt/windows/AboutView.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <algorithm>

#include "qt/desktop/QtDesktop.h"
#include "qt/windows/views.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

class AboutViewTest : public testing::Test {
protected:
    AboutViewTest() {
        addEditorViews(desktop);
        desktop.showWindow(controller);
    }
    static QWidget* shown() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }

    editor::about controller;
    desktop::QtDesktop desktop{[](int) {}};
};

TEST_F(AboutViewTest, SaysWhatTheProgramIsAndItsVersion) {
    ASSERT_NE(shown(), nullptr);
    QString all;
    for (const QLabel* label : shown()->findChildren<QLabel*>()) {
        all += label->text() + QLatin1Char('\n');
    }
    EXPECT_TRUE(all.contains(QStringLiteral("Tormelk Wyro")));
    EXPECT_TRUE(all.contains(QStringLiteral("Version " TORMELK_VERSION)));
}

TEST(AboutView, ShowsTheProgramsIcon) {
    QPixmap icon(96, 96);
    icon.fill(Qt::red);
    QApplication::setWindowIcon(QIcon(icon));
    editor::about controller;
    const AboutView view(controller);
    const QList<QLabel*> labels = view.findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
        return !label->pixmap(Qt::ReturnByValue).isNull();
    }));
    QApplication::setWindowIcon({});
}

TEST_F(AboutViewTest, IsHiddenByItsButtonByEscapeAndByItsCloseBoxAndComesBack) {
    QWidget* window = shown();
    ASSERT_NE(window, nullptr);
    const std::vector<std::function<void()>> waysOut = {
        [window] { support::hands::click(support::hands::find(*window, "close")); },
        [window] { support::hands::press(*window, Qt::Key_Escape); },
        [window] { window->close(); },
    };
    for (const auto& leave : waysOut) {
        leave();
        EXPECT_FALSE(window->isVisible());
        EXPECT_FALSE(controller.window().isVisible());
        desktop.showWindow(controller);
        EXPECT_EQ(shown(), window);
    }
}

TEST_F(AboutViewTest, LeavesTheOtherWindowsUsable) {
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(shown()->windowModality(), Qt::NonModal);
}

}  // namespace
}  // namespace qt::windows
