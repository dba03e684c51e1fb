#include "qt/surface/signs.h"

#include <QPolygonF>
#include <array>

namespace qt::surface {

namespace {

constexpr qreal ninths = 9;

/// A point of the square, in ninths of its side.
QPointF spot(const QRectF& square, qreal x, qreal y) {
    const qreal unit = square.width() / ninths;
    return square.topLeft() + QPointF(x, y) * unit;
}

void drawBar(QPainter& painter, const QRectF& square, const QRectF& bar, const QColor& colour) {
    painter.fillRect(
        QRectF(spot(square, bar.left(), bar.top()), spot(square, bar.right(), bar.bottom())),
        colour);
}

void drawNote(QPainter& painter, const QRectF& square, const QColor& colour) {
    const qreal unit = square.width() / ninths;
    painter.setBrush(colour);
    painter.drawEllipse(spot(square, 3, 7), 2.6 * unit, 2.0 * unit);
    painter.setPen(QPen(colour, 1.4 * unit, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPolyline(
        QPolygonF({spot(square, 5, 7), spot(square, 5, 0.8), spot(square, 8.4, 3.2)}));
}

void drawArrowHeads(QPainter& painter, const QRectF& square, const QColor& colour) {
    painter.setBrush(colour);
    painter.drawPolygon(
        QPolygonF({spot(square, 4.5, 0), spot(square, 8.1, 4), spot(square, 0.9, 4)}));
    painter.drawPolygon(
        QPolygonF({spot(square, 4.5, 9), spot(square, 8.1, 5), spot(square, 0.9, 5)}));
}

}  // namespace

void drawKindSign(QPainter& painter, const QRectF& square, config::MessageKind kind,
                  const QColor& colour) {
    constexpr std::array<QRectF, 3> rising = {QRectF(0, 6, 2.2, 3), QRectF(3.4, 3, 2.2, 6),
                                              QRectF(6.8, 0, 2.2, 9)};
    constexpr std::array<QRectF, 3> list = {QRectF(0, 0.4, 9, 1.8), QRectF(0, 3.6, 9, 1.8),
                                            QRectF(0, 6.8, 9, 1.8)};
    painter.save();
    painter.setPen(Qt::NoPen);
    switch (kind) {
        case config::MessageKind::Note:
            drawNote(painter, square, colour);
            break;
        case config::MessageKind::ControlChange:
            for (const QRectF& bar : rising) {
                drawBar(painter, square, bar, colour);
            }
            break;
        case config::MessageKind::ProgramChange:
            for (const QRectF& bar : list) {
                drawBar(painter, square, bar, colour);
            }
            break;
        case config::MessageKind::PitchBend:
            drawArrowHeads(painter, square, colour);
            break;
        case config::MessageKind::Unknown:
            painter.setPen(QPen(colour, square.width() / 6));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(square.adjusted(1, 1, -1, -1));
            break;
    }
    painter.restore();
}

void drawToggleSign(QPainter& painter, const QRectF& area, const QColor& colour,
                    const QColor& background) {
    const qreal radius = area.height() / 2;
    painter.save();
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(area, radius, radius);
    painter.setBrush(background);
    painter.drawEllipse(QPointF(area.right() - radius, area.center().y()), radius * 0.62,
                        radius * 0.62);
    painter.restore();
}

}  // namespace qt::surface
