#pragma once

#include <QApplication>
#include <memory>

namespace app {

/// The application, on the display there is. Where no window can be shown, a line on standard error
/// says why, and the process ends with status 1.
///
/// A session bus is used where there is one; none is started, for what is started so stays behind,
/// with a folder in the home of the user.
[[nodiscard]] std::unique_ptr<QApplication> openDisplay(int& count, char** arguments);

}  // namespace app
