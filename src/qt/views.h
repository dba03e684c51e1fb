#pragma once

#include "qt/QtDesktop.h"

namespace qt {

/// Tells the desktop the view of each of the editor's secondary windows.
void addEditorViews(QtDesktop& desktop);

}  // namespace qt
