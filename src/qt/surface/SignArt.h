#pragma once

#include <QCache>
#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <QRectF>
#include <QSizeF>

#include "describe/assignment.h"

namespace qt::surface {

/// The signs of `signs.h`, kept as small pictures: their outlines take far longer to fill than a
/// picture to copy. Where a sign stands between the pixels of the screen is part of it, as finely
/// as outlines are filled; the faces have few different places for it.
class SignArt {
public:
    /// No more signs are kept than these; what was not drawn for the longest goes first.
    static constexpr int mostKept = 500;

    void drawKind(QPainter& painter, const QRectF& square, config::MessageKind kind,
                  const QColor& colour);
    void drawToggle(QPainter& painter, const QRectF& area, const QColor& colour,
                    const QColor& background);

    [[nodiscard]] int kept() const { return static_cast<int>(signs_.size()); }
    void forget() { signs_.clear(); }

private:
    struct Sign {
        int shape;  ///< a kind, or one more for the switch
        QSizeF size;
        QRgb colour;
        QRgb background;
        int right;  ///< of a whole pixel, in parts of one
        int down;
        qreal ratio;

        bool operator==(const Sign&) const = default;
        friend std::size_t qHash(const Sign& key, std::size_t seed) {
            return qHashMulti(seed, key.shape, key.size.width(), key.colour, key.background,
                              key.right, key.down);
        }
    };

    void draw(QPainter& painter, const QRectF& area, Sign sign);

    QCache<Sign, QPixmap> signs_{mostKept};
};

}  // namespace qt::surface
