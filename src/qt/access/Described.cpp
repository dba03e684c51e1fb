#include "qt/access/Described.h"

#include <QAccessible>

namespace qt::access {

namespace {

QAccessibleInterface* askObject(const QString&, QObject* object) {
    auto* described = dynamic_cast<Described*>(object);
    return described == nullptr ? nullptr : described->newAccess();
}

}  // namespace

Described::Described(QObject* self) {
    QAccessible::installFactory(askObject);  // more than once does nothing
    if (QAccessibleInterface* early = QAccessible::queryAccessibleInterface(self)) {
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
    }
}

}  // namespace qt::access
