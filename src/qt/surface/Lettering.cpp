#include "qt/surface/Lettering.h"

#include <QTextLayout>
#include <utility>

namespace qt::surface {

namespace {

/// Where the same text, painted by its base line, would have its glyphs.
QList<QGlyphRun> glyphsOf(const FittedText& fitted) {
    QTextLayout layout(fitted.text, fitted.font);
    QTextOption oneLine;
    oneLine.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(oneLine);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    layout.endLayout();
    if (!line.isValid()) {
        return {};
    }
    line.setPosition(QPointF(0, -line.ascent()));
    return layout.glyphRuns();
}

}  // namespace

LaidText Lettering::fitted(const QString& text, const QFont& font, qreal size, qreal widest) {
    Key key{text, font, size, widest};
    if (const LaidText* known = texts_.object(key)) {
        return *known;
    }
    LaidText laid{fitText(text, font, size, widest), {}};
    laid.glyphs = glyphsOf(laid);
    texts_.insert(std::move(key), new LaidText(laid));
    return laid;
}

}  // namespace qt::surface
