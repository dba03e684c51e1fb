#pragma once

#include "qt/desktop/QtDesktop.h"

namespace qt::windows {

/// Tells the desktop the view of each of the editor's secondary windows.
void addEditorViews(desktop::QtDesktop& desktop);

}  // namespace qt::windows
