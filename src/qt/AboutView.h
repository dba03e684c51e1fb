#pragma once

#include "editor/about.h"
#include "qt/DialogView.h"

namespace qt {

/// What this program is.
class AboutView final : public DialogView {
public:
    explicit AboutView(editor::about& controller);
};

}  // namespace qt
