// What holds in every window alike.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPalette>
#include <QScrollBar>
#include <cmath>
#include <set>

#include "qt/EveryWindow.h"

namespace tests {
namespace {

bool hasLabel(QAccessibleInterface& widget) {
    return !widget.relations(QAccessible::Label).isEmpty();
}

TEST(EveryWindow, TellsAScreenReaderWhatEachThingInItIsCalled) {
    forEveryWindow([](QWidget& window, const QString& name) {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const bool reachable = widget->focusPolicy() != Qt::NoFocus && widget->isVisible();
            if (!reachable || qobject_cast<QScrollBar*>(widget) != nullptr) {
                continue;
            }
            QAccessibleInterface* access = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(access, nullptr);
            const bool isBox = qobject_cast<QComboBox*>(widget) != nullptr;
            const bool named = !isBox && !access->text(QAccessible::Name).isEmpty();
            EXPECT_TRUE(named || hasLabel(*access))
                << name.toStdString() << ": " << widget->metaObject()->className() << " "
                << widget->objectName().toStdString();
        }
    });
}

TEST(EveryWindow, CutsNoText) {
    forEveryWindow([](QWidget& window, const QString& name) {
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const bool holdsText = qobject_cast<QLabel*>(widget) != nullptr ||
                                   qobject_cast<QAbstractButton*>(widget) != nullptr ||
                                   qobject_cast<QGroupBox*>(widget) != nullptr ||
                                   qobject_cast<QComboBox*>(widget) != nullptr;
            if (!widget->isVisible() || !holdsText) {
                continue;
            }
            const QSize needed = widget->minimumSizeHint();
            EXPECT_TRUE(widget->width() >= needed.width() && widget->height() >= needed.height())
                << name.toStdString() << ": " << widget->objectName().toStdString();
            EXPECT_TRUE(
                window.rect().contains(QRect(widget->mapTo(&window, QPoint(0, 0)), widget->size())))
                << name.toStdString() << ": " << widget->objectName().toStdString();
        }
    });
}

TEST(EveryWindow, FitsASmallScreen) {
    forEveryWindow([](QWidget& window, const QString& name) {
        EXPECT_LE(window.width(), 1280) << name.toStdString();
        EXPECT_LE(window.height(), 720) << name.toStdString();
    });
}

TEST(EveryWindow, ShowsTheTextOfAChoiceInFullWhereItIsShort) {
    forEveryWindow([](QWidget& window, const QString& name) {
        for (const QComboBox* box : window.findChildren<QComboBox*>()) {
            const int room = box->width() - 40;  // frame and arrow
            EXPECT_LE(box->fontMetrics().horizontalAdvance(box->currentText()), room)
                << name.toStdString() << ": " << box->objectName().toStdString();
        }
    });
}

TEST(EveryWindow, IsOneOfTheWindowsThereAre) {
    std::set<std::string> seen;
    forEveryWindow([&seen](QWidget&, const QString& name) { seen.insert(name.toStdString()); });
    for (const char* window :
         {"main", "main-no-output", "main-sent", "main-disabled", "pad-constant", "seldev", "about",
          "message", "pad", "simulator", "firmware", "alert"}) {
        EXPECT_TRUE(seen.contains(window)) << window;
    }
}

}  // namespace
}  // namespace tests
