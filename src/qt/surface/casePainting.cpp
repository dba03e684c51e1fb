#include "qt/surface/casePainting.h"

#include <QLinearGradient>
#include <array>
#include <utility>

#include "qt/surface/contrast.h"
#include "qt/surface/fittedText.h"
#include "qt/surface/signs.h"

namespace qt::surface {

namespace {

constexpr qreal engravingSize = 11;

QRectF scaled(const QRectF& area, qreal unit) {
    return {area.topLeft() * unit, area.size() * unit};
}

void paintBody(QPainter& painter, const CasePlan& plan, qreal unit, const SurfaceColours& colours) {
    const QRectF body =
        scaled(QRectF(QPointF(0, 0), plan.size), unit).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient light(body.topLeft(), body.bottomLeft());
    light.setColorAt(0, between(colours.body, Qt::white, 0.04));
    light.setColorAt(1, colours.body);
    painter.setPen(QPen(colours.bodyEdge, 1));
    painter.setBrush(light);
    painter.drawRoundedRect(body, caseRadius * unit, caseRadius * unit);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.plate);
    for (const QRectF& plate : plan.plates) {
        painter.drawRoundedRect(scaled(plate, unit), plateRadius * unit, plateRadius * unit);
    }
}

void letter(QPainter& painter, const QRectF& area, const QString& text, Qt::Alignment alignment,
            const QFont& font, qreal size) {
    const FittedText fitted = fitText(text, font, size, area.width());
    painter.setFont(fitted.font);
    painter.drawText(area, static_cast<int>(alignment), fitted.text);
}

/// In rows from the first on.
void paintSignKey(QPainter& painter, const std::vector<QRectF>& rows, qreal unit, const QFont& font,
                  const SurfaceColours& colours) {
    using config::MessageKind;
    const std::array<std::pair<MessageKind, QString>, 4> kinds = {{
        {MessageKind::Note, QStringLiteral("Note")},
        {MessageKind::ControlChange, QStringLiteral("Control")},
        {MessageKind::ProgramChange, QStringLiteral("Program")},
        {MessageKind::PitchBend, QStringLiteral("Pitch")},
    }};
    constexpr qreal textLeft = 17;
    if (rows.size() <= kinds.size()) {
        return;
    }
    std::size_t row = 0;
    const auto areaOfText = [&rows, unit](std::size_t index) {
        return scaled(rows[index].adjusted(textLeft, 0, 0, 0), unit);
    };
    for (const auto& [kind, name] : kinds) {
        const QRectF& area = rows[row];
        const QRectF sign(area.left() + 2, area.center().y() - kindSignSide / 2, kindSignSide,
                          kindSignSide);
        drawKindSign(painter, scaled(sign, unit), kind, colours.kind(kind, colours.body));
        painter.setPen(colours.engraving);
        letter(painter, areaOfText(row), name, Qt::AlignLeft | Qt::AlignVCenter, font,
               engravingSize * unit);
        ++row;
    }
    const QRectF& area = rows[row];
    const QRectF sign(area.left(), area.center().y() - toggleSignSize.height() / 2,
                      toggleSignSize.width(), toggleSignSize.height());
    drawToggleSign(painter, scaled(sign, unit), colours.engraving, colours.body);
    painter.setPen(colours.engraving);
    letter(painter, areaOfText(row), QStringLiteral("Toggle"), Qt::AlignLeft | Qt::AlignVCenter,
           font, engravingSize * unit);
}

}  // namespace

void paintCase(QPainter& painter, const CasePlan& plan, qreal unit, const QFont& font,
               const SurfaceColours& colours) {
    painter.setRenderHint(QPainter::Antialiasing);
    paintBody(painter, plan, unit, colours);
    painter.setPen(colours.engraving);
    for (const Engraving& engraving : plan.engravings) {
        QFont used = font;
        used.setBold(engraving.isStrong);
        letter(painter, scaled(engraving.area, unit), engraving.text, engraving.alignment, used,
               engravingSize * unit);
    }
    paintSignKey(painter, plan.signKey, unit, font, colours);
}

}  // namespace qt::surface
