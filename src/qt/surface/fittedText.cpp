#include "qt/surface/fittedText.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

namespace qt::surface {

int letteringPixels(qreal size) {
    return std::max(static_cast<int>(std::lround(size)), smallestLettering);
}

FittedText fitText(const QString& text, const QFont& font, qreal size, qreal widest) {
    FittedText fitted;
    fitted.text = text;
    fitted.font = font;
    int pixels = letteringPixels(size);
    while (true) {
        fitted.font.setPixelSize(pixels);
        const QFontMetricsF metrics(fitted.font);
        fitted.width = metrics.horizontalAdvance(fitted.text);
        fitted.height = metrics.height();
        fitted.ascent = metrics.ascent();
        if (fitted.width <= widest || fitted.isCut) {
            return fitted;
        }
        if (pixels > smallestLettering) {
            --pixels;
        } else {
            fitted.text = metrics.elidedText(text, Qt::ElideRight, widest);
            fitted.isCut = true;
        }
    }
}

}  // namespace qt::surface
