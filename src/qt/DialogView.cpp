#include "qt/DialogView.h"

namespace qt {

DialogView::DialogView(toolkit::WindowController& controller, const QString& title)
    : binding_(*this, controller.window()) {
    setWindowTitle(title);
}

void DialogView::reject() {
    if (toolkit::Window* window = binding_.model()) {
        window->close();
    }
}

}  // namespace qt
