#include "qt/surface/surfacePlan.h"

#include <array>

#include "config/layout.h"
#include "describe/controlNames.h"
#include "qt/widgets/asText.h"

namespace qt::surface {

namespace {

constexpr int strips = 8;
constexpr int buttonsOfAStrip = 4;
constexpr int keysInARow = 4;
constexpr int padsInARow = 3;

// Across.
constexpr qreal rowNames = 14;
constexpr qreal rowNamesWidth = 44;
constexpr qreal firstStrip = 63;
constexpr qreal stripPitch = 62;
constexpr qreal stripWidth = 57;
constexpr qreal master = firstStrip + strips * stripPitch + 7;
constexpr qreal keys = 641;
constexpr qreal keysWidth = 305;
constexpr qreal layerNameWidth = 73;

// Down.
constexpr qreal heading = 12;
constexpr qreal headingHeight = 16;
constexpr qreal knobTop = 30;
constexpr qreal knobSide = 57;
constexpr qreal pushTop = 92;
constexpr qreal buttonTop = 130;
constexpr qreal buttonHeight = 34;
constexpr qreal buttonPitch = 38;
constexpr qreal faderTop = 288;
constexpr qreal bottom = 506;
constexpr qreal layerKeyTop = 44;
constexpr qreal transportKeyTop = 96;
constexpr qreal captionHeight = 14;
constexpr qreal modeLayerTop = 140;
constexpr qreal padLayerTop = 174;
constexpr qreal layerHeight = 28;
constexpr qreal padsTop = 212;
constexpr qreal signRows = 34;
constexpr qreal signRowPitch = 19;
constexpr qreal plateBorder = 3;

QRectF inStrip(int strip, qreal top, qreal height) {
    return {firstStrip + strip * stripPitch, top, stripWidth, height};
}

QRectF keyArea(int key, qreal top) {
    return cell(keys, keysWidth, key, keysInARow, top, buttonHeight);
}

QRectF layerArea(int layer, qreal top) {
    return cell(keys + layerNameWidth, keysWidth - layerNameWidth, layer, keysInARow, top,
                layerHeight);
}

QRectF padArea(int position) {
    constexpr int rows = config::padCount / padsInARow;
    constexpr qreal height = (bottom - padsTop - faceGap * (rows - 1)) / rows;
    const int row = position / padsInARow;
    return cell(keys, keysWidth, position % padsInARow, padsInARow,
                padsTop + row * (height + faceGap), height);
}

Engraving rowName(int control, qreal top, qreal height) {
    return {{rowNames, top, rowNamesWidth, height},
            widgets::asText(describe::controlCaption(control)),
            Qt::AlignRight | Qt::AlignVCenter};
}

std::vector<Engraving> engravings() {
    std::vector<Engraving> all;
    all.reserve(32);
    for (int strip = 0; strip < strips; ++strip) {
        all.push_back({inStrip(strip, heading, headingHeight), QString::number(strip + 1),
                       Qt::AlignCenter, true});
    }
    all.push_back(rowName(config::firstEncoder, knobTop, knobSide));
    all.push_back(rowName(config::firstEncoderPush, pushTop, buttonHeight));
    for (int button = 0; button < buttonsOfAStrip; ++button) {
        all.push_back(rowName(button, buttonTop + button * buttonPitch, buttonHeight));
    }
    all.push_back(rowName(config::firstFader, faderTop, bottom - faderTop));
    all.push_back({{master, faderTop - headingHeight - plateBorder, stripWidth, headingHeight},
                   QStringLiteral("Master"),
                   Qt::AlignCenter,
                   true});
    for (int key = 0; key < keysInARow; ++key) {
        for (const auto& [first, top] : {std::pair(config::firstLayerKey, layerKeyTop),
                                         std::pair(config::firstTransportKey, transportKeyTop)}) {
            const QRectF area = keyArea(key, top - captionHeight - faceMargin);
            all.push_back({{area.left(), area.top(), area.width(), captionHeight},
                           widgets::asText(describe::controlCaption(first + key))});
        }
    }
    const Qt::Alignment left = Qt::AlignLeft | Qt::AlignVCenter;
    all.push_back(
        {{keys, modeLayerTop, layerNameWidth, layerHeight}, QStringLiteral("Mode layer"), left});
    all.push_back(
        {{keys, padLayerTop, layerNameWidth, layerHeight}, QStringLiteral("Pad layer"), left});
    all.push_back(
        {{keys, heading, keysWidth, headingHeight}, QStringLiteral("TORMELK"), left, true});
    return all;
}

std::vector<QRectF> plates() {
    std::vector<QRectF> all;
    all.reserve(strips + 1);
    for (int strip = 0; strip < strips; ++strip) {
        all.push_back(inStrip(strip, heading, bottom - heading)
                          .adjusted(-plateBorder + 1, -plateBorder, plateBorder - 1, plateBorder));
    }
    all.push_back(QRectF(master, faderTop, stripWidth, bottom - faderTop)
                      .adjusted(-plateBorder + 1, -plateBorder, plateBorder - 1, plateBorder));
    return all;
}

/// A row for each of the four kinds and for toggles.
std::vector<QRectF> signKey() {
    constexpr int rows = 5;
    std::vector<QRectF> all;
    all.reserve(rows);
    for (int row = 0; row < rows; ++row) {
        all.emplace_back(master, signRows + row * signRowPitch, stripWidth + 13, signRowPitch);
    }
    return all;
}

}  // namespace

Place placeOfTag(int tag) {
    using namespace config;
    if (tag < firstLayerKey) {
        const qreal top = buttonTop + tag % buttonsOfAStrip * buttonPitch;
        return {FaceShape::Key, inStrip(tag / buttonsOfAStrip, top, buttonHeight)};
    }
    if (tag < firstTransportKey) {
        return {FaceShape::Key, keyArea(tag - firstLayerKey, layerKeyTop)};
    }
    if (tag < firstEncoderPush) {
        return {FaceShape::Key, keyArea(tag - firstTransportKey, transportKeyTop)};
    }
    if (tag < firstEncoder) {
        return {FaceShape::Key, inStrip(tag - firstEncoderPush, pushTop, buttonHeight)};
    }
    if (tag < firstFader) {
        return {FaceShape::Knob, inStrip(tag - firstEncoder, knobTop, knobSide)};
    }
    if (tag < lastFader) {
        return {FaceShape::Fader, inStrip(tag - firstFader, faderTop, bottom - faderTop)};
    }
    if (tag == lastFader) {
        return {FaceShape::Fader, {master, faderTop, stripWidth, bottom - faderTop}};
    }
    return {FaceShape::Pad, padArea(tag - firstPad)};
}

Place placeOfModeLayer(int layer) {
    return {FaceShape::Layer, layerArea(layer, modeLayerTop)};
}

Place placeOfPadLayer(int layer) {
    return {FaceShape::Layer, layerArea(layer, padLayerTop)};
}

CasePlan surfaceCase() {
    return {planSize, engravings(), plates(), signKey()};
}

}  // namespace qt::surface
