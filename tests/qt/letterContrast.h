#pragma once

#include <QImage>
#include <QStringList>

#include "qt/SurfaceEditor.h"

namespace tests {

/// Every text of the drawn controller that cannot be read in its picture, and why: its strokes have
/// less contrast to what is behind them than 4.5 to 1, or there are none. The picture may be of any
/// device pixel ratio.
[[nodiscard]] QStringList unreadableTexts(const QImage& picture, const SurfaceEditor& editor);

/// How many texts that looks at.
[[nodiscard]] int textCount(const SurfaceEditor& editor);

}  // namespace tests
