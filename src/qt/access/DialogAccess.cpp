#include "qt/access/DialogAccess.h"

#include <QAccessibleWidget>
#include <QDialog>

namespace qt::access {

namespace {

class DialogAccess final : public QAccessibleWidget {
public:
    explicit DialogAccess(QDialog* dialog) : QAccessibleWidget(dialog, QAccessible::Dialog) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = widget()->isModal();
        return state;
    }
};

}  // namespace

QAccessibleInterface* newDialogAccess(QDialog& dialog) {
    return new DialogAccess(&dialog);
}

}  // namespace qt::access
