#include "qt/desktop/windowInFront.h"

#include <QApplication>
#include <QMainWindow>

namespace qt::desktop {

namespace {

QWidget* shownMainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) {
            return window;
        }
    }
    return nullptr;
}

}  // namespace

QWidget* windowInFront() {
    QWidget* window = QApplication::activeWindow();
    while (window != nullptr && !window->isVisible()) {
        window = window->parentWidget();
    }
    if (window == nullptr) {
        window = QApplication::activeModalWidget();
    }
    return window == nullptr ? shownMainWindow() : window;
}

}  // namespace qt::desktop
