#pragma once

// How the controller's case is drawn: what lies under the faces.

#include <QFont>
#include <QPainter>

#include "qt/SurfaceColours.h"

namespace qt {

/// Paints the case with its lettering, `unit` pixels a unit of the drawing, from the painter's
/// origin on.
void paintCase(QPainter& painter, qreal unit, const QFont& font, const SurfaceColours& colours);

}  // namespace qt
