#include "qt/surface/FaceArt.h"

#include <cmath>

namespace qt::surface {

namespace {

/// No pixel of the widget may be left out where the ratio is no whole number.
QSize inDevicePixels(const QSizeF& size, qreal ratio) {
    return {static_cast<int>(std::ceil(size.width() * ratio)),
            static_cast<int>(std::ceil(size.height() * ratio))};
}

qsizetype bytesOf(const QPixmap& pixmap) {
    return qsizetype{pixmap.width()} * pixmap.height() * pixmap.depth() / 8;
}

}  // namespace

QPixmap FaceArt::ground(const FaceLook& look, const QPoint& place, qreal ratio) {
    const Ground key{{look.shape, look.area.size().toSize(), look.isChecked, look.isEnabled,
                      look.isHovered, look.isHeld, ratio},
                     place};
    if (const QPixmap* known = grounds_.object(key)) {
        return *known;
    }
    QPixmap ground = drawnGround(look, key);
    grounds_.setMaxCost(bytesOf(drawnCase_()));
    grounds_.insert(key, new QPixmap(ground), bytesOf(ground));
    return ground;
}

QPixmap FaceArt::drawnGround(const FaceLook& look, const Ground& key) {
    QPixmap pixmap(inDevicePixels(key.body.size, key.body.ratio));
    pixmap.setDevicePixelRatio(key.body.ratio);
    pixmap.fill(colours_.body);
    QPainter painter(&pixmap);
    painter.drawPixmap(-key.place, drawnCase_());
    painter.drawPixmap(0, 0, body(look, key.body));
    return pixmap;
}

QPixmap FaceArt::body(const FaceLook& look, const Body& key) {
    QPixmap& pixmap = bodies_[key];
    if (pixmap.isNull()) {
        pixmap = QPixmap((QSizeF(key.size) * key.ratio).toSize());
        pixmap.setDevicePixelRatio(key.ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paintFaceBody(painter, look, colours_);
    }
    return pixmap;
}

void FaceArt::forget() {
    bodies_.clear();
    grounds_.clear();
    lettering_.forget();
}

void FaceArt::takeColours(const QPalette& palette) {
    colours_ = SurfaceColours(palette);
    forget();
}

}  // namespace qt::surface
