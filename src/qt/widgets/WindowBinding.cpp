#include "qt/widgets/WindowBinding.h"

#include <QCloseEvent>

#include "qt/widgets/asText.h"

namespace qt::widgets {

WindowBinding::WindowBinding(QWidget& widget, toolkit::Window& model, Title title)
    : widget_(widget),
      mark_(title == Title::MarksUnsavedChanges ? QStringLiteral("[*]") : QString()),
      link_(model, [this](toolkit::Window::Change change) { show(change); }) {
    widget.installEventFilter(this);
    widget.setWindowTitle(asText(model.title()) + mark_);
}

bool WindowBinding::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close || link_.model() == nullptr) {
        return QObject::eventFilter(watched, event);
    }
    event->ignore();  // what is hidden here is hidden by the model
    link_.model()->close();
    return true;
}

void WindowBinding::show(toolkit::Window::Change change) {
    switch (change) {
        case toolkit::Window::Change::Title:
            widget_.setWindowTitle(asText(link_.model()->title()) + mark_);
            break;
        case toolkit::Window::Change::Visibility:
            widget_.setVisible(link_.model()->isVisible());
            break;
        case toolkit::Window::Change::Front:
            widget_.show();
            widget_.raise();
            widget_.activateWindow();
            break;
    }
}

}  // namespace qt::widgets
