#pragma once

// Small signs that tell message kinds and toggles apart by their shape as well as by their colour.

#include <QColor>
#include <QPainter>
#include <QRectF>

#include "describe/assignment.h"

namespace qt::surface {

/// Space that a sign needs beside lettering, in units of the drawing.
inline constexpr qreal kindSignSide = 8;
inline constexpr QSizeF toggleSignSize(10, 6);

/// A note is a note, control change rising bars, program change a list, pitch bend two arrow
/// heads, an unknown message an empty ring. The sign fills the square.
void drawKindSign(QPainter& painter, const QRectF& square, config::MessageKind kind,
                  const QColor& colour);

/// A switch with its knob on the right.
void drawToggleSign(QPainter& painter, const QRectF& area, const QColor& colour,
                    const QColor& background);

}  // namespace qt::surface
