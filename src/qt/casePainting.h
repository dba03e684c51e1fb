#pragma once

// How the controller's case is drawn: what lies under the faces.

#include <QFont>
#include <QPainter>

#include "qt/SurfaceColours.h"
#include "qt/casePlan.h"

namespace qt {

/// Paints a case with its lettering, `unit` pixels a unit of the drawing, from the painter's origin
/// on.
void paintCase(QPainter& painter, const CasePlan& plan, qreal unit, const QFont& font,
               const SurfaceColours& colours);

}  // namespace qt
