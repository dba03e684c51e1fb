#include "qt/surface/ControlButton.h"

#include <QFontMetrics>
#include <QPainter>

#include "qt/access/FaceAccess.h"
#include "qt/surface/contrast.h"

namespace qt::surface {

namespace {

/// A fill under a finger, or under the mouse.
QColor touched(const QColor& fill, const QColor& lettering, const ButtonState& state) {
    if (state.isHeld) {
        return between(fill, lettering, 0.25);
    }
    return state.isHovered ? between(fill, lettering, 0.08) : fill;
}

}  // namespace

ControlButton::ControlButton(toolkit::Button& model, Shape shape, const QString& caption,
                             QWidget* parent)
    : widgets::ButtonView(model, Kind::State, caption, parent), Described(this), shape_(shape) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(isLamp() ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QAccessibleInterface* ControlButton::newAccess() {
    return isLamp() ? access::newLampAccess(*this) : nullptr;
}

QSize ControlButton::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int width = metrics.horizontalAdvance(text());
    const int height = metrics.height();
    return isLamp() ? QSize(width + height + 10, height + 8) : QSize(width + 16, height + 12);
}

void ControlButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ButtonState state = stateOf(*this);
    const Style style = styleOf(state);
    paintRounded(painter, outline(), style.edge, style.fill);
    drawCaption(painter, style.lettering);
    if (state.hasFocus) {
        constexpr qreal inset = 3;
        paintRing(painter, outline().inside(inset), QPen(style.lettering, 1.0, Qt::DotLine));
    }
}

ControlButton::Style ControlButton::styleOf(const ButtonState& state) const {
    const QPalette& all = palette();
    const QColor text = all.color(QPalette::WindowText);
    if (state.isChecked) {
        const QColor onLit = all.color(QPalette::HighlightedText);
        const QColor lettering = isLamp() ? all.color(QPalette::ButtonText) : onLit;
        const QColor fill =
            touched(shadeFor(all.color(QPalette::Highlight), onLit, readableContrast + 0.4),
                    lettering, state);
        return {QPen(between(fill, text, 0.4), 2.0), fill, lettering};
    }
    const QColor lettering = all.color(QPalette::ButtonText);
    const QColor fill = touched(
        between(all.color(QPalette::Button), all.color(QPalette::Light), 0.5), lettering, state);
    const QColor line = between(all.color(QPalette::Window), text, state.isEnabled ? 0.55 : 0.3);
    return {QPen(line, 1.0), fill, lettering};
}

Outline ControlButton::outline() const {
    const QRectF all = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    if (isLamp()) {
        const qreal side = all.height() * 0.6;
        return {{all.left() + 1, all.center().y() - side / 2, side, side}, side / 2};
    }
    return {all, 4};
}

void ControlButton::drawCaption(QPainter& painter, const QColor& lettering) const {
    QFont used = font();
    used.setBold(isChecked() && !isLamp());
    painter.setFont(used);
    painter.setPen(lettering);
    QRectF area = rect();
    int alignment = Qt::AlignCenter;
    if (isLamp()) {
        area.setLeft(outline().area.right() + 6);
        alignment = Qt::AlignLeft | Qt::AlignVCenter;
    }
    painter.drawText(area, alignment | Qt::TextShowMnemonic, text());
}

}  // namespace qt::surface
