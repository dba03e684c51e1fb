#include "toolkit/Window.h"

namespace toolkit {

void Window::setTitle(std::string_view title) {
    if (title == title_) {
        return;
    }
    title_ = title;
    tell(Change::Title);
}

void Window::makeKeyAndOrderFront() {
    setVisible(true);
    tell(Change::Front);
}

void Window::orderOut() {
    setVisible(false);
}

void Window::close() {
    if (closing_) {
        return;
    }
    closing_ = true;
    if (windowWillClose) {
        windowWillClose();
    }
    setVisible(false);
    closing_ = false;
}

void Window::setVisible(bool visible) {
    if (visible == visible_) {
        return;
    }
    visible_ = visible;
    tell(Change::Visibility);
}

void Window::tell(Change change) const {
    if (onChange) {
        onChange(change);
    }
}

}  // namespace toolkit
