#include "qt/fittedText.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace qt {

FittedText fitText(const QString& text, const QFont& font, qreal size, qreal room) {
    FittedText fitted{text, font, 0, false};
    int pixels = std::max(static_cast<int>(std::lround(size)), smallestLettering);
    for (; pixels >= smallestLettering; --pixels) {
        fitted.font.setPixelSize(pixels);
        fitted.width = QFontMetricsF(fitted.font).horizontalAdvance(text);
        if (fitted.width <= room) {
            return fitted;
        }
    }
    const QFontMetricsF metrics(fitted.font);
    fitted.text = metrics.elidedText(text, Qt::ElideRight, room);
    fitted.width = metrics.horizontalAdvance(fitted.text);
    fitted.isCut = true;
    return fitted;
}

}  // namespace qt
