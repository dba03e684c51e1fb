#include "qt/widgets/DialogView.h"

#include "qt/access/DialogAccess.h"

namespace qt::widgets {

DialogView::DialogView(toolkit::WindowController& controller, const QString& title)
    : Described(this), binding_(*this, controller.window()) {
    setWindowTitle(title);
}

void DialogView::reject() {
    if (toolkit::Window* window = binding_.model()) {
        window->close();
    }
}

QAccessibleInterface* DialogView::newAccess() {
    return access::newDialogAccess(*this);
}

}  // namespace qt::widgets
