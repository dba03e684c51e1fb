#pragma once

#include "toolkit/WindowController.h"

namespace editor {

/// The about window. It is made once, and only hidden when it is closed.
class about final : public toolkit::WindowController {
public:
    void windowWillClose() override {}
};

}  // namespace editor
