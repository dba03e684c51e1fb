#include "qt/surface/padPlan.h"

#include "config/layout.h"

namespace qt::surface {

namespace {

constexpr QSizeF size(344, 384);
constexpr int padsInARow = 3;

constexpr qreal border = 18;
constexpr qreal width = size.width() - 2 * border;
constexpr qreal layerNameWidth = 76;
constexpr qreal layerTop = 16;
constexpr qreal layerHeight = 28;
constexpr qreal padsTop = 56;
constexpr qreal padsHeight = size.height() - padsTop - border;

}  // namespace

Place placeOfPad(int position) {
    constexpr int rows = config::padCount / padsInARow;
    constexpr qreal height = (padsHeight - faceGap * (rows - 1)) / rows;
    const int row = position / padsInARow;
    return {FaceShape::Pad, cell(border, width, position % padsInARow, padsInARow,
                                 padsTop + row * (height + faceGap), height)};
}

Place placeOfEditedLayer(int index) {
    return {FaceShape::Layer, cell(border + layerNameWidth, width - layerNameWidth, index,
                                   editedPadLayers, layerTop, layerHeight)};
}

CasePlan padCase() {
    CasePlan plan;
    plan.size = size;
    plan.engravings = {{{border, layerTop, layerNameWidth, layerHeight},
                        QStringLiteral("Pad layer"),
                        Qt::AlignLeft | Qt::AlignVCenter}};
    return plan;
}

}  // namespace qt::surface
