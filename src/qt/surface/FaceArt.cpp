#include "qt/surface/FaceArt.h"

namespace qt::surface {

const QPixmap& FaceArt::body(const FaceLook& look, qreal ratio) {
    const QSize size = look.area.size().toSize();
    const Key key{look.shape,     size.width(),   size.height(), look.isChecked,
                  look.isEnabled, look.isHovered, look.isHeld,   ratio};
    QPixmap& pixmap = bodies_[key];
    if (pixmap.isNull()) {
        pixmap = QPixmap((QSizeF(size) * ratio).toSize());
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paintFaceBody(painter, look, colours_);
    }
    return pixmap;
}

void FaceArt::takeColours(const QPalette& palette) {
    colours_ = SurfaceColours(palette);
    bodies_.clear();
}

}  // namespace qt::surface
