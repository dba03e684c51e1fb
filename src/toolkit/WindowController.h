#pragma once

#include "toolkit/Window.h"

namespace toolkit {

/// The logic behind one secondary window (`seldev`, `pad`, `about` and the like). It owns the
/// models of what the window holds; a view is made for it by the Desktop when it is shown.
class WindowController {
public:
    WindowController() {
        window_.windowWillClose = [this] { windowWillClose(); };
    }
    WindowController(const WindowController&) = delete;
    WindowController& operator=(const WindowController&) = delete;
    virtual ~WindowController() = default;

    /// The window. The first call loads it: `awakeFromNib` runs once, with the window's widgets in
    /// place.
    Window& window() {
        if (!loaded_) {
            loaded_ = true;
            awakeFromNib();
        }
        return window_;
    }

    /// The window is about to close; a modal window stops its modal run here.
    virtual void windowWillClose() = 0;

protected:
    /// Fills what the window shows.
    virtual void awakeFromNib() {}

private:
    Window window_;
    bool loaded_ = false;
};

}  // namespace toolkit
