#pragma once

// Where everything on the controller stands, in units of the drawing: about a pixel each at the
// size the window opens with. Left to right: what the rows are called, eight strips, the master
// fader under the key to the signs, then keys, layer buttons and pads.

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <vector>

namespace qt {

enum class FaceShape { Knob, Key, Fader, Pad, Layer };

/// The whole case. Its proportions never change.
inline constexpr QSizeF planSize(960, 520);

/// Free room around a face, for the ring that shows the keyboard's place.
inline constexpr qreal faceMargin = 2;

/// Roundness of the corners of keys and pads, of a plate, of the case.
inline constexpr qreal keyRadius = 4;
inline constexpr qreal plateRadius = 7;
inline constexpr qreal caseRadius = 16;

struct Place {
    FaceShape shape = FaceShape::Key;
    QRectF room;  ///< without its margin
};

/// The place of a control's face, by the tag of its button (0 to 73).
[[nodiscard]] Place placeOfTag(int tag);
/// The places of the layer buttons, 0 to 3.
[[nodiscard]] Place placeOfModeLayer(int layer);
[[nodiscard]] Place placeOfPadLayer(int layer);

/// A text printed on the case.
struct Engraving {
    QRectF room;
    QString text;
    Qt::Alignment alignment = Qt::AlignCenter;
    bool isStrong = false;
};
[[nodiscard]] std::vector<Engraving> engravings();

/// The raised parts of the case that strips and groups stand on.
[[nodiscard]] std::vector<QRectF> plates();

/// Where the key to the signs stands, a row for each of the four kinds and for toggles.
[[nodiscard]] QRectF signKeyRow(int row);

}  // namespace qt
