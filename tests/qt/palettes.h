#pragma once

#include <QPalette>

namespace tests {

/// A light and a dark theme as desktops have them.
[[nodiscard]] QPalette lightPalette();
[[nodiscard]] QPalette darkPalette();

}  // namespace tests
