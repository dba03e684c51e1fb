#pragma once

#include <QCache>
#include <QHash>
#include <QPalette>
#include <QPixmap>
#include <QPoint>
#include <QSize>
#include <functional>
#include <utility>

#include "qt/surface/Lettering.h"
#include "qt/surface/SurfaceColours.h"
#include "qt/surface/facePainting.h"

namespace qt::surface {

/// What the faces of one controller share and what was drawn of them already: their colours, their
/// bodies, of which only few differ, the ground that each of them stands on, and their texts. A
/// layer switch paints all faces at once; with these it puts glyphs and signs on finished grounds.
class FaceArt {
public:
    /// `drawnCase` gives the case that the faces stand on, as large as their panel.
    FaceArt(const QPalette& palette, std::function<const QPixmap&()> drawnCase)
        : colours_(palette), drawnCase_(std::move(drawnCase)) {}

    [[nodiscard]] const SurfaceColours& colours() const { return colours_; }
    [[nodiscard]] Lettering& lettering() { return lettering_; }

    /// The face at this place of the panel without lettering and focus, for a device pixel ratio:
    /// its body on the case. It is opaque, so that painting it takes nothing beneath.
    [[nodiscard]] QPixmap ground(const FaceLook& look, const QPoint& place, qreal ratio);

    /// The grounds that are kept never take more bytes than the case, which all faces of one state
    /// fit into.
    [[nodiscard]] qsizetype bytesOfGrounds() const { return grounds_.totalCost(); }

    /// The size of the drawing or its font has changed.
    void forget();

    /// The palette has changed.
    void takeColours(const QPalette& palette);

private:
    struct Body {
        FaceShape shape;
        QSize size;
        bool isChecked;
        bool isEnabled;
        bool isHovered;
        bool isHeld;
        qreal ratio;

        bool operator==(const Body&) const = default;
        friend std::size_t qHash(const Body& key, std::size_t seed) {
            return qHashMulti(seed, static_cast<int>(key.shape), key.size.width(),
                              key.size.height(), key.isChecked, key.isEnabled, key.isHovered,
                              key.isHeld, key.ratio);
        }
    };
    struct Ground {
        Body body;
        QPoint place;

        bool operator==(const Ground&) const = default;
        friend std::size_t qHash(const Ground& key, std::size_t seed) {
            return qHashMulti(qHash(key.body, seed), key.place.x(), key.place.y());
        }
    };

    [[nodiscard]] QPixmap body(const FaceLook& look, const Body& key);
    [[nodiscard]] QPixmap drawnGround(const FaceLook& look, const Ground& key);

    SurfaceColours colours_;
    std::function<const QPixmap&()> drawnCase_;
    QHash<Body, QPixmap> bodies_;
    QCache<Ground, QPixmap> grounds_;
    Lettering lettering_;
};

}  // namespace qt::surface
