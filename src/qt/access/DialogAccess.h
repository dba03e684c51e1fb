#pragma once

class QAccessibleInterface;
class QDialog;

namespace qt::access {

/// For a dialog that says, too, whether it is modal.
[[nodiscard]] QAccessibleInterface* newDialogAccess(QDialog& dialog);

}  // namespace qt::access
