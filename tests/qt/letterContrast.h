#pragma once

#include <QImage>
#include <QStringList>

#include "qt/FacePanel.h"

namespace tests {

/// Every text of a drawn panel that cannot be read in its picture, and why: its strokes have
/// less contrast to what is behind them than 4.5 to 1, or there are none. The picture may be of any
/// device pixel ratio.
[[nodiscard]] QStringList unreadableTexts(const QImage& picture, const qt::FacePanel& panel);

/// How many texts that looks at.
[[nodiscard]] int textCount(const qt::FacePanel& panel);

}  // namespace tests
