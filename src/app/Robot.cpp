#include "app/Robot.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <utility>

namespace app::robot {

namespace {

constexpr auto betweenLooks = std::chrono::milliseconds(5);

QDialog* openDialog(const QString& title) {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const bool found = dialog != nullptr && dialog->isVisible() && dialog->windowTitle() == title;
    return found ? dialog : nullptr;
}

}  // namespace

void click(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton);
}

void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&widget, key, modifiers);
}

void choose(QComboBox& box, int index) {
    click(box);
    QAbstractItemView* list = box.view();
    press(*list, Qt::Key_Home);
    for (int row = 0; row < index; ++row) {
        press(*list, Qt::Key_Down);
    }
    press(*list, Qt::Key_Enter);
}

void whenDialogOpens(const QString& title, std::function<void(QDialog&)> act) {
    QTimer::singleShot(betweenLooks, [title, act = std::move(act)] {
        if (QDialog* dialog = openDialog(title)) {
            act(*dialog);
        } else {
            whenDialogOpens(title, act);
        }
    });
}

}  // namespace app::robot
