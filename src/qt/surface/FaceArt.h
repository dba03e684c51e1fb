#pragma once

#include <QPalette>
#include <QPixmap>
#include <map>
#include <tuple>

#include "qt/surface/SurfaceColours.h"
#include "qt/surface/facePainting.h"

namespace qt::surface {

/// What the faces of one controller share: its colours, and the drawn bodies of knobs, keys, faders
/// and pads, of which only few differ. A layer switch paints all faces at once; with these it
/// paints their lettering.
class FaceArt {
public:
    explicit FaceArt(const QPalette& palette) : colours_(palette) {}

    [[nodiscard]] const SurfaceColours& colours() const { return colours_; }

    /// A face without lettering and focus, for a device pixel ratio.
    [[nodiscard]] const QPixmap& body(const FaceLook& look, qreal ratio);

    /// The size of the drawing has changed.
    void forgetBodies() { bodies_.clear(); }

    /// The palette has changed.
    void takeColours(const QPalette& palette);

private:
    using Key = std::tuple<FaceShape, int, int, bool, bool, bool, bool, qreal>;

    SurfaceColours colours_;
    std::map<Key, QPixmap> bodies_;
};

}  // namespace qt::surface
