#include "qt/desktop/InputShield.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <algorithm>

namespace qt::desktop {

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

/// Makes a widget refuse presses, or take them again, without a change to its look until it is
/// painted.
void setRefusesPresses(QWidget& widget, bool refuses) {
    widget.setAttribute(Qt::WA_Disabled, refuses || widget.testAttribute(Qt::WA_ForceDisabled));
}

bool takesPresses(const QWidget& widget) {
    const bool isOfThatKind = qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
                              qobject_cast<const QComboBox*>(&widget) != nullptr;
    return isOfThatKind && widget.isEnabled();
}

}  // namespace

InputShield::Up::Up(InputShield& shield) : shield_(shield) {
    shield_.putUp();
}

InputShield::Up::~Up() {
    shield_.takeDown();
}

void InputShield::putUp() {
    QCoreApplication::instance()->installEventFilter(this);
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget* const widget : widgets) {
        if (takesPresses(*widget)) {
            shieldedWidgets_.emplace_back(widget);
            setRefusesPresses(*widget, true);
        }
        const QList<QAction*> actions = widget->actions();
        for (QAction* const action : actions) {
            if (!action->signalsBlocked()) {
                shieldedActions_.emplace_back(action);
                action->blockSignals(true);
            }
        }
    }
}

void InputShield::takeDown() {
    painting_.clear();
    for (const QPointer<QWidget>& widget : shieldedWidgets_) {
        if (widget) {
            setRefusesPresses(*widget, false);
        }
    }
    shieldedWidgets_.clear();
    for (const QPointer<QAction>& action : shieldedActions_) {
        if (action) {
            // It may have been told to run a little later.
            QCoreApplication::removePostedEvents(action, QEvent::MetaCall);
            action->blockSignals(false);
        }
    }
    shieldedActions_.clear();
    QCoreApplication::instance()->removeEventFilter(this);
    // A menu that was opened meanwhile cannot have been opened by hand.
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        if (!popup->close()) {
            break;
        }
    }
}

void InputShield::letPaint(QObject* watched) {
    const auto found =
        std::find_if(shieldedWidgets_.begin(), shieldedWidgets_.end(),
                     [watched](const auto& widget) { return widget.data() == watched; });
    if (found != shieldedWidgets_.end()) {
        painting_ = *found;
        setRefusesPresses(*painting_, false);
    }
}

bool InputShield::eventFilter(QObject* watched, QEvent* event) {
    if (painting_) {  // and is done with it
        setRefusesPresses(*painting_, true);
        painting_.clear();
    }
    if (event->type() == QEvent::Paint) {
        letPaint(watched);
    }
    if (!isInput(*event)) {
        return QObject::eventFilter(watched, event);
    }
    event->ignore();  // a window that is not told to close must not be taken for closed
    return true;
}

}  // namespace qt::desktop
