#include "qt/InputShield.h"

#include <QCoreApplication>
#include <QEvent>

namespace qt {

namespace {

bool isInput(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::NonClientAreaMouseButtonPress:
        case QEvent::NonClientAreaMouseButtonRelease:
        case QEvent::NonClientAreaMouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::TabletMove:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
        case QEvent::NativeGesture:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::DragLeave:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputShield::Up::Up(InputShield& shield) : shield_(shield) {
    QCoreApplication::instance()->installEventFilter(&shield_);
}

InputShield::Up::~Up() {
    QCoreApplication::instance()->removeEventFilter(&shield_);
}

bool InputShield::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(*event)) {
        return QObject::eventFilter(watched, event);
    }
    event->ignore();  // a window that is not told to close must not be taken for closed
    return true;
}

}  // namespace qt
