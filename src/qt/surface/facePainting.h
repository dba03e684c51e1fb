#pragma once

// How a face of the controller is drawn, given what it shows and the state it is in.

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

#include "describe/assignment.h"
#include "qt/surface/Lettering.h"
#include "qt/surface/SurfaceColours.h"
#include "qt/surface/buttonPainting.h"
#include "qt/surface/casePlan.h"

namespace qt::surface {

struct FaceLook : ButtonState {  ///< checked: selected; of a layer button: lit
    FaceShape shape = FaceShape::Key;
    QRectF area;     ///< of the whole widget, in pixels
    qreal unit = 1;  ///< pixels a unit of the drawing
    QFont font;
    QString caption;  ///< printed on pads and layer buttons
    describe::Assignment assignment;
};

/// The key, knob, fader or pad itself, from the painter's origin on. It depends on shape, size and
/// state alone.
void paintFaceBody(QPainter& painter, const FaceLook& look, const SurfaceColours& colours);

/// What stands on it: lettering, signs, and the ring of the focus around it.
void paintFaceLetters(QPainter& painter, const FaceLook& look, const SurfaceColours& colours,
                      Lettering& lettering);

/// The lines of a face and where they stand, in pixels from the widget's corner. Layer buttons have
/// none; a face with a single line has an empty second one.
struct FaceLines {
    LaidText first;
    QRectF firstArea;
    LaidText second;
    QRectF secondArea;
    QRectF kindSign;
    QRectF toggleSign;  ///< empty where the control does not toggle
};
[[nodiscard]] FaceLines linesOf(const FaceLook& look, Lettering& lettering);

/// What all lines and signs of this face, whatever it is assigned, stay within.
[[nodiscard]] QRectF letteredAreaOf(const FaceLook& look, Lettering& lettering);

/// Where a pad's or a layer button's own caption stands.
[[nodiscard]] QRectF captionAreaOf(const FaceLook& look);

}  // namespace qt::surface
