#pragma once

#include <QApplication>
#include <QCursor>

namespace tests {

/// Takes the mouse off every window. It begins in the middle of the screen, where it would light
/// what happens to lie under it.
inline void parkMouse() {
    QCursor::setPos(-10000, -10000);
    QApplication::processEvents();
}

}  // namespace tests
