#pragma once

// The hands of a person in front of the windows of this process: real mouse and key events into
// real widgets. They need no test library, so the benchmarks and the demo's check have them too.

#include <QComboBox>
#include <QDialog>
#include <QString>
#include <QWidget>
#include <functional>

namespace support::hands {

/// The widget with this object name; it must exist and be of this type.
template <typename Widget = QWidget>
Widget& find(const QWidget& window, const char* name);

/// Clicks the middle of a widget.
void click(QWidget& widget);

/// Types a key.
void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Opens a drop-down list by the mouse and picks an item by the arrow keys and Enter.
void choose(QComboBox& box, int index);

/// Runs `act` as soon as a modal dialog with this title is open. To be called before what opens it,
/// which does not return until the dialog is closed. Where none opens within half a minute, the
/// process ends.
void whenDialogOpens(const QString& title, std::function<void(QDialog&)> act);

template <typename Widget>
Widget& find(const QWidget& window, const char* name) {
    auto* widget = window.findChild<Widget*>(QString::fromLatin1(name));
    if (widget == nullptr) {
        qFatal("There is no widget \"%s\"", name);
    }
    return *widget;
}

}  // namespace support::hands
