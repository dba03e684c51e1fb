#pragma once

// Lettering that has to stay within some width: made smaller where it must, cut with "..." only
// where it would become too small to read.

#include <QFont>
#include <QString>

namespace qt::surface {

/// Lettering on the controller is never smaller, in pixels on the screen.
inline constexpr int smallestLettering = 9;

struct FittedText {
    QString text;
    QFont font;
    qreal width = 0;
    qreal height = 0;  ///< of a line
    qreal ascent = 0;  ///< from the top of the line to its base
    bool isCut = false;
};

/// The pixels of a font that is wanted this high.
[[nodiscard]] int letteringPixels(qreal size);

/// `size` is the wanted height of the font in pixels.
[[nodiscard]] FittedText fitText(const QString& text, const QFont& font, qreal size, qreal widest);

}  // namespace qt::surface
