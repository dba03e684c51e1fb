#include "qt/access/Described.h"

#include <QAccessible>
#include <QScopedValueRollback>

namespace qt::access {

namespace {

/// It cannot be asked for what it is before it is whole.
const QObject* beingMade = nullptr;

QAccessibleInterface* askObject(const QString&, QObject* object) {
    if (object == beingMade) {
        return nullptr;
    }
    auto* described = dynamic_cast<Described*>(object);
    return described == nullptr ? nullptr : described->newAccess();
}

}  // namespace

Described::Described(QObject* self) {
    QAccessible::installFactory(askObject);  // more than once does nothing
    const QScopedValueRollback isBeingMade(beingMade, static_cast<const QObject*>(self));
    if (QAccessibleInterface* early = QAccessible::queryAccessibleInterface(self)) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
    }
}

}  // namespace qt::access
