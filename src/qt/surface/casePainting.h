#pragma once

// How the controller's case is drawn: what lies under the faces.

#include <QFont>
#include <QPainter>

#include "qt/surface/SurfaceColours.h"
#include "qt/surface/casePlan.h"

namespace qt::surface {

/// Paints a case with its lettering, `unit` pixels a unit of the drawing, from the painter's origin
/// on.
void paintCase(QPainter& painter, const CasePlan& plan, qreal unit, const QFont& font,
               const SurfaceColours& colours);

}  // namespace qt::surface
