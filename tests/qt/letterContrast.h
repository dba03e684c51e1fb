#pragma once

#include <QImage>
#include <QStringList>

#include "qt/surface/FacePanel.h"

namespace tests {

/// Every text of a drawn panel that cannot be read in its picture, and why: its strokes have
/// less contrast to what is behind them than 4.5 to 1, or there are none. The picture may be of any
/// device pixel ratio.
[[nodiscard]] QStringList unreadableTexts(const QImage& picture,
                                          const qt::surface::FacePanel& panel);

/// How many texts that looks at.
[[nodiscard]] int textCount(const qt::surface::FacePanel& panel);

/// The same for the labels, buttons and boxes of a window that is shown, as far as they are
/// switched on; not for its drawn panels.
[[nodiscard]] QStringList unreadableTexts(const QImage& picture, const QWidget& window);

}  // namespace tests
