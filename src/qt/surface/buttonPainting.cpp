#include "qt/surface/buttonPainting.h"

#include <QAbstractButton>
#include <algorithm>

namespace qt::surface {

ButtonState stateOf(const QAbstractButton& button) {
    ButtonState state;
    state.isChecked = button.isChecked();
    state.isEnabled = button.isEnabled();
    state.isHovered = button.underMouse() && button.isEnabled();
    state.isHeld = button.isDown();
    state.hasFocus = button.hasFocus();
    return state;
}

Outline Outline::inside(qreal by) const {
    return {area.adjusted(by, by, -by, -by), std::max(radius - by, 1.0)};
}

void paintRounded(QPainter& painter, const Outline& outline, const QPen& edge, const QBrush& fill) {
    painter.setPen(edge);
    painter.setBrush(fill);
    painter.drawRoundedRect(outline.area, outline.radius, outline.radius);
}

void paintRing(QPainter& painter, const Outline& outline, const QPen& pen) {
    paintRounded(painter, outline, pen, Qt::NoBrush);
}

}  // namespace qt::surface
