#pragma once

#include "editor/walk/Driver.h"

namespace walk {

/// The models behind the names.
[[nodiscard]] toolkit::ComboBox& boxOf(editor::MainWindow& window, MainBox box);
[[nodiscard]] toolkit::ComboBox& boxOf(editor::pad& pad, PadBox box);
/// The button `m_paLa<padLayer>`, 1 to 3.
[[nodiscard]] toolkit::Button& layerButtonOf(editor::pad& pad, int padLayer);

}  // namespace walk
