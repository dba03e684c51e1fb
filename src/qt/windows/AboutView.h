#pragma once

#include "editor/about.h"
#include "qt/widgets/DialogView.h"

namespace qt::windows {

/// What this program is.
class AboutView final : public widgets::DialogView {
public:
    explicit AboutView(editor::about& controller);
};

}  // namespace qt::windows
