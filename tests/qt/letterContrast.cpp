#include "qt/letterContrast.h"

#include <QHash>
#include <algorithm>
#include <vector>

#include "qt/FaceButton.h"
#include "qt/contrast.h"

namespace tests {

namespace {

struct Lettering {
    QString text;
    QRectF room;  ///< in the panel
};

std::vector<Lettering> letteringOf(const qt::FacePanel& panel) {
    std::vector<Lettering> all;
    const qreal unit = panel.unit();
    for (const qt::Engraving& engraving : panel.plan().engravings) {
        all.push_back(
            {engraving.text,
             {panel.corner() + engraving.room.topLeft() * unit, engraving.room.size() * unit}});
    }
    for (const qt::FaceButton* button : panel.faces()) {
        const qt::FaceLook look = button->look();
        const qt::FaceLines lines = qt::linesOf(look);
        const bool hasCaption =
            look.shape == qt::FaceShape::Pad || look.shape == qt::FaceShape::Layer;
        const QPointF origin = button->pos();
        if (hasCaption) {
            all.push_back({look.caption, qt::captionRoomOf(look).translated(origin)});
        }
        for (const auto& [fitted, room] :
             {std::pair(lines.first, lines.firstRoom), std::pair(lines.second, lines.secondRoom)}) {
            if (!fitted.text.isEmpty()) {
                const qreal spare = (room.width() - fitted.width) / 2;
                all.push_back({fitted.text, room.adjusted(spare, 0, -spare, 0).translated(origin)});
            }
        }
    }
    return all;
}

/// The strongest contrast of any pixel to the commonest colour.
qreal contrastWithin(const QImage& part) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            ++counts[part.pixel(x, y)];
        }
    }
    QRgb background = 0;
    int most = 0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        if (entry.value() > most) {
            most = entry.value();
            background = entry.key();
        }
    }
    qreal strongest = 1;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        strongest = std::max(strongest, qt::contrast(QColor(entry.key()), QColor(background)));
    }
    return strongest;
}

}  // namespace

QStringList unreadableTexts(const QImage& picture, const qt::FacePanel& panel) {
    QStringList unreadable;
    const qreal ratio = picture.devicePixelRatio();
    for (const Lettering& lettering : letteringOf(panel)) {
        const QRectF room(lettering.room.topLeft() * ratio, lettering.room.size() * ratio);
        const qreal found = contrastWithin(picture.copy(room.toAlignedRect()));
        if (found < qt::readableContrast) {
            unreadable.append(QStringLiteral("\"%1\": %2 to 1").arg(lettering.text).arg(found));
        }
    }
    return unreadable;
}

int textCount(const qt::FacePanel& panel) {
    return static_cast<int>(letteringOf(panel).size());
}

}  // namespace tests
