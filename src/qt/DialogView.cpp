#include "qt/DialogView.h"

#include "qt/WindowAccess.h"

namespace qt {

DialogView::DialogView(toolkit::WindowController& controller, const QString& title)
    : binding_(*this, controller.window()) {
    describeWindows();
    setWindowTitle(title);
}

void DialogView::reject() {
    if (toolkit::Window* window = binding_.model()) {
        window->close();
    }
}

}  // namespace qt
