#pragma once

// What assistive technology is told of windows and menus.

namespace qt {

/// From now on a dialog says whether it is modal, the simulated controller's window is told as a
/// window, and pressing an entry of the main window's menu answers at once, even where it opens a
/// dialog. To be called before the first window is made; more calls do nothing.
void describeWindows();

}  // namespace qt
