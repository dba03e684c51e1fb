#include "toolkit/Button.h"

namespace toolkit {

void Button::setState(int state) {
    if (state == state_) {
        return;
    }
    state_ = state;
    tell();
}

void Button::setEnabled(bool enabled) {
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    tell();
}

void Button::click() {
    if (!enabled_) {
        return;
    }
    if (click_ == Click::Lights) {
        setState(1);
    } else if (click_ == Click::Flips) {
        setState(state_ == 0 ? 1 : 0);
    }
    if (action) {
        action(*this);
    }
}

void Button::tell() const {
    if (onChange) {
        onChange();
    }
}

}  // namespace toolkit
