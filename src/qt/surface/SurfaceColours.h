#pragma once

// The colours of the drawn controller. All of them come from a palette's roles, so that they fit a
// light theme and a dark one and any accent; lettering is shaded until it can be read.

#include <QColor>
#include <QPalette>
#include <array>
#include <cstddef>

#include "describe/assignment.h"

namespace qt::surface {

struct SurfaceColours {
    explicit SurfaceColours(const QPalette& palette);

    /// A message kind's own colour, to be seen on this background.
    [[nodiscard]] QColor kind(config::MessageKind kind, const QColor& background) const;
    /// The same on a face, of which there are many.
    [[nodiscard]] QColor kindOnFace(config::MessageKind kind) const {
        return kindsOnFace_.at(static_cast<std::size_t>(kind));
    }

    QColor body;             ///< the controller's case
    QColor bodyEdge;         ///< its outline
    QColor plate;            ///< a strip or group on the case
    QColor engraving;        ///< lettering on case and plates
    QColor face;             ///< a key's top
    QColor faceHovered;      ///< under the mouse
    QColor facePressed;      ///< held down
    QColor edge;             ///< a key's outline
    QColor groove;           ///< a fader's slot, what lies deeper than the case
    QColor lettering;        ///< on faces
    QColor lesserLettering;  ///< the second line on faces
    QColor selected;         ///< the face of the selected control
    QColor selectedLettering;
    QColor accent;  ///< lamps and outlines on and around faces
    QColor focus;   ///< the ring around what has the focus
    QColor disabledLettering;

private:
    int accentHue_;
    std::array<QColor, 5> kindsOnFace_;
};

}  // namespace qt::surface
