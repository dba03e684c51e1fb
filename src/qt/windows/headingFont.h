#pragma once

#include <QFont>

namespace qt::windows {

/// For what a part of a window is about, above it.
[[nodiscard]] inline QFont headingFont(const QFont& text) {
    constexpr qreal size = 1.35;
    QFont font = text;
    font.setPointSizeF(text.pointSizeF() * size);
    font.setBold(true);
    return font;
}

}  // namespace qt::windows
