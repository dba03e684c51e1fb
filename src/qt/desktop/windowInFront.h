#pragma once

class QWidget;

namespace qt::desktop {

/// The window that a dialog belongs to which opens now; none where no window is shown. Between two
/// dialogs a desktop may have given the focus to nobody yet, or it is with a panel that is
/// hidden and on its way out: the window behind them counts then, so that it gets the focus back
/// when the new dialog is closed.
[[nodiscard]] QWidget* windowInFront();

}  // namespace qt::desktop
