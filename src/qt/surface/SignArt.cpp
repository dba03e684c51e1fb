#include "qt/surface/SignArt.h"

#include <cmath>

#include "qt/surface/signs.h"

namespace qt::surface {

namespace {

constexpr int switchShape = static_cast<int>(config::MessageKind::Unknown) + 1;
constexpr int parts = 64;     // of a pixel
constexpr int clearance = 2;  // pixels around a sign, for lines that reach out of its area

int partsOf(qreal pixels) {
    return static_cast<int>(std::lround(pixels * parts));
}

int wholeOf(int inParts) {
    return static_cast<int>(std::floor(static_cast<qreal>(inParts) / parts));
}

int pixelsFor(qreal length) {
    return static_cast<int>(std::ceil(length)) + 2 * clearance + 1;
}

}  // namespace

void SignArt::drawKind(QPainter& painter, const QRectF& square, config::MessageKind kind,
                       const QColor& colour) {
    draw(painter, square, {static_cast<int>(kind), square.size(), colour.rgba(), 0, 0, 0, 1});
}

void SignArt::drawToggle(QPainter& painter, const QRectF& area, const QColor& colour,
                         const QColor& background) {
    draw(painter, area, {switchShape, area.size(), colour.rgba(), background.rgba(), 0, 0, 1});
}

void SignArt::draw(QPainter& painter, const QRectF& area, Sign sign) {
    const qreal ratio = painter.device()->devicePixelRatioF();
    const int left = partsOf(area.left() * ratio);
    const int top = partsOf(area.top() * ratio);
    const QPointF corner(wholeOf(left) - clearance, wholeOf(top) - clearance);
    sign.ratio = ratio;
    sign.right = left - wholeOf(left) * parts;
    sign.down = top - wholeOf(top) * parts;
    if (const QPixmap* known = signs_.object(sign)) {
        painter.drawPixmap(corner / ratio, *known);
        return;
    }
    QPixmap pixmap(pixelsFor(area.width() * ratio), pixelsFor(area.height() * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter artist(&pixmap);
    artist.setRenderHint(QPainter::Antialiasing);
    const QPointF start(clearance + static_cast<qreal>(sign.right) / parts,
                        clearance + static_cast<qreal>(sign.down) / parts);
    const QRectF within(start / ratio, sign.size);
    if (sign.shape == switchShape) {
        drawToggleSign(artist, within, QColor::fromRgba(sign.colour),
                       QColor::fromRgba(sign.background));
    } else {
        drawKindSign(artist, within, static_cast<config::MessageKind>(sign.shape),
                     QColor::fromRgba(sign.colour));
    }
    artist.end();
    painter.drawPixmap(corner / ratio, pixmap);
    signs_.insert(sign, new QPixmap(pixmap));
}

}  // namespace qt::surface
