#pragma once

// What a drawn case has printed on it and where, in units of the drawing: about a pixel each at the
// size a window opens with.

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <vector>

namespace qt::surface {

enum class FaceShape { Knob, Key, Fader, Pad, Layer };

/// Free space around a face, for the ring that shows the focus.
inline constexpr qreal faceMargin = 2;

/// Roundness of the corners of keys and pads, of a plate, of the case.
inline constexpr qreal keyRadius = 4;
inline constexpr qreal plateRadius = 7;
inline constexpr qreal caseRadius = 16;

/// Of a face.
struct Place {
    FaceShape shape = FaceShape::Key;
    QRectF area;  ///< without its margin
};

/// A text printed on the case.
struct Engraving {
    QRectF area;
    QString text;
    Qt::Alignment alignment = Qt::AlignCenter;
    bool isStrong = false;
};

struct CasePlan {
    QSizeF size;  ///< of the whole case; its proportions never change
    std::vector<Engraving> engravings;
    std::vector<QRectF> plates;   ///< raised parts that strips and groups stand on
    std::vector<QRectF> signKey;  ///< a row for each kind's sign and for toggles, or nothing
};

/// Free space between two faces of a row.
inline constexpr qreal faceGap = 8;

/// One of several equal cells side by side.
[[nodiscard]] constexpr QRectF cell(qreal left, qreal width, int index, int count, qreal top,
                                    qreal height) {
    const qreal each = (width - faceGap * (count - 1)) / count;
    return {left + index * (each + faceGap), top, each, height};
}

}  // namespace qt::surface
