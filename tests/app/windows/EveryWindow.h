#pragma once

#include <QWidget>
#include <functional>

namespace tests {

/// Opens each window of the editor in turn, in a telling state, and shows it to `visit` with a name
/// for it: "main", "seldev", "about", "message", "pad", "simulator", "firmware", "alert" and
/// variants of them.
void forEveryWindow(const std::function<void(QWidget& window, const QString& name)>& visit);

/// Opens the File menu over the main window of the editor, with no, one and several copies of
/// unsaved work, and shows the window to `visit`. The menus are windows of their own.
void forEveryMenu(const std::function<void(QWidget& window, const QString& name)>& visit);

}  // namespace tests
