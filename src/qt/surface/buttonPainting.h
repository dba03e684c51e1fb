#pragma once

// What all drawn buttons have, faces of the controller and keys beside it: a state, a body with
// round corners, and a ring that shows the focus.

#include <QBrush>
#include <QPainter>
#include <QPen>
#include <QRectF>

class QAbstractButton;

namespace qt::surface {

struct ButtonState {
    bool isChecked = false;  ///< lit
    bool isEnabled = true;
    bool isHovered = false;
    bool isHeld = false;
    bool hasFocus = false;
};

[[nodiscard]] ButtonState stateOf(const QAbstractButton& button);

/// A rectangle with round corners.
struct Outline {
    QRectF area;
    qreal radius = 0;

    /// The one that runs within it, or around it where `by` is negative, at this distance.
    [[nodiscard]] Outline inside(qreal by) const;
};

void paintRounded(QPainter& painter, const Outline& outline, const QPen& edge, const QBrush& fill);
void paintRing(QPainter& painter, const Outline& outline, const QPen& pen);

}  // namespace qt::surface
