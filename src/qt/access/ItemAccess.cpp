#include "qt/access/ItemAccess.h"

#include <QWindow>

namespace qt::access {

QWindow* ItemAccess::window() const {
    const QWidget* whole = container();
    return whole == nullptr ? nullptr : whole->window()->windowHandle();
}

QAccessibleInterface* ItemAccess::parent() const {
    return QAccessible::queryAccessibleInterface(container());
}

QRect ItemAccess::rect() const {
    return isValid() ? place() : QRect();
}

QAccessible::State ItemAccess::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (!state.invalid) {
        state.disabled = !isEnabled();
        state.focusable = true;
        state.selectable = true;
        completeState(state);
    }
    return state;
}

void* ItemAccess::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList ItemAccess::actionNames() const {
    return isValid() && isEnabled() ? QStringList(pressAction()) : QStringList();
}

void ItemAccess::doAction(const QString& name) {
    if (actionNames().contains(name)) {
        pressSoon();
    }
}

}  // namespace qt::access
