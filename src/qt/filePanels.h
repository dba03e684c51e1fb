#pragma once

// The save and the open panel. They start in the folder used last in this run, and remember nothing
// else.

#include <filesystem>
#include <optional>

#include "toolkit/Desktop.h"

namespace qt::filePanels {

[[nodiscard]] std::optional<std::filesystem::path> runSave(const toolkit::SavePanel& panel);
[[nodiscard]] std::optional<std::filesystem::path> runOpen(const toolkit::OpenPanel& panel);

}  // namespace qt::filePanels
