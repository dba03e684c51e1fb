#pragma once

#include <QObjectCleanupHandler>
#include <filesystem>
#include <optional>

#include "toolkit/Desktop.h"

namespace qt::desktop {

/// The save and the open panel. They start in the folder used last in this run, and remember
/// nothing else. A panel that was answered is hidden at once and destroyed a little later, with
/// this object at the latest.
class FilePanels {
public:
    [[nodiscard]] std::optional<std::filesystem::path> runSave(const toolkit::SavePanel& panel);
    [[nodiscard]] std::optional<std::filesystem::path> runOpen(const toolkit::OpenPanel& panel);

private:
    QObjectCleanupHandler leaving_;
};

}  // namespace qt::desktop
