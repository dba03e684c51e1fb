#include "support/windows/hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <utility>

namespace support::hands {

namespace {

constexpr auto betweenLooks = std::chrono::milliseconds(5);
constexpr int mostLooks = 6000;

QDialog* openDialog(const QString& title) {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const bool found = dialog != nullptr && dialog->isVisible() && dialog->windowTitle() == title;
    return found ? dialog : nullptr;
}

void lookFor(const QString& title, std::function<void(QDialog&)> act, int looks) {
    if (QDialog* dialog = openDialog(title)) {
        act(*dialog);
        return;
    }
    if (looks == mostLooks) {
        qFatal("No dialog \"%s\" opened", qUtf8Printable(title));
    }
    QTimer::singleShot(betweenLooks,
                       [title, act = std::move(act), looks] { lookFor(title, act, looks + 1); });
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
    QTimer::singleShot(betweenLooks, [title, act = std::move(act)] { lookFor(title, act, 1); });
}

}  // namespace support::hands
