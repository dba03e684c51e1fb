#include "qt/surface/Lettering.h"

#include <QFontMetricsF>
#include <QTextLayout>

namespace qt::surface {

namespace {

/// Sets glyphs and width from text and font.
void layOut(LaidText& laid) {
    QTextLayout layout(laid.text, laid.font);
    QTextOption oneLine;
    oneLine.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(oneLine);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    if (line.isValid()) {
        line.setPosition(QPointF(0, -line.ascent()));
        laid.width = line.horizontalAdvance();
        laid.glyphs = layout.glyphRuns();
    }
}

/// Most texts fit at once: those are laid out a single time, to be measured and to be painted.
LaidText laidOut(const QString& text, const QFont& font, qreal size, qreal widest) {
    LaidText laid;
    laid.text = text;
    laid.font = font;
    laid.font.setPixelSize(letteringPixels(size));
    layOut(laid);
    if (laid.width > widest) {
        static_cast<FittedText&>(laid) = fitText(text, font, size, widest);
        layOut(laid);
        return laid;
    }
    const QFontMetricsF metrics(laid.font);
    laid.height = metrics.height();
    laid.ascent = metrics.ascent();
    return laid;
}

}  // namespace

LaidText Lettering::fitted(const QString& text, const QFont& font, qreal size, qreal widest) {
    const Key key{text, font, size, widest};
    if (const LaidText* known = texts_.object(key)) {
        return *known;
    }
    LaidText laid = laidOut(text, font, size, widest);
    texts_.insert(key, new LaidText(laid));
    return laid;
}

}  // namespace qt::surface
