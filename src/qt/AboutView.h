#pragma once

#include "qt/DialogView.h"
#include "shell/about.h"

namespace qt {

/// What this program is.
class AboutView final : public DialogView {
public:
    explicit AboutView(shell::about& controller);
};

}  // namespace qt
