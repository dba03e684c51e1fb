#pragma once

#include <QAction>

#include "qt/access/Described.h"

namespace qt::access {

/// An entry of a menu that does something. Assistive technology that presses it is answered at
/// once, even where it opens a dialog.
class Command final : public QAction, public Described {
public:
    Command(const QString& caption, QObject* parent);

    [[nodiscard]] QAccessibleInterface* newAccess() override;
};

}  // namespace qt::access
