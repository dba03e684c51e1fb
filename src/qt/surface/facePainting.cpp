#include "qt/surface/facePainting.h"

#include <QLinearGradient>
#include <algorithm>

#include "qt/surface/contrast.h"
#include "qt/surface/signs.h"
#include "qt/widgets/asText.h"

namespace qt::surface {

namespace {

// In units of the drawing.
constexpr qreal firstLineSize = 12;
constexpr qreal secondLineSize = 10;
constexpr qreal padFirstLineSize = 16;
constexpr qreal padSecondLineSize = 11.5;
constexpr qreal captionSize = 10;
constexpr qreal signGap = 3;
constexpr qreal faderLettersHeight = 32;

struct Style {
    QColor fill;
    QColor lettering;
    QColor lesserLettering;
    QColor sign;
    QColor edge;
    qreal edgeWidth = 1;
};

Style styleOf(const FaceLook& look, const SurfaceColours& colours) {
    const config::MessageKind kind = look.assignment.kind;
    if (!look.isEnabled) {
        return {colours.plate,
                colours.disabledLettering,
                colours.disabledLettering,
                colours.disabledLettering,
                colours.disabledLettering,
                look.isChecked ? 2.5 : 1.0};
    }
    const bool isLayer = look.shape == FaceShape::Layer;
    if (look.isChecked && !isLayer) {
        const QColor fill =
            look.isHeld ? between(colours.selected, Qt::black, 0.12) : colours.selected;
        const QColor lettering = colours.selectedLettering;
        return {fill, lettering, lettering, lettering, between(fill, colours.lettering, 0.55), 2};
    }
    QColor fill = look.isHovered ? colours.faceHovered : colours.face;
    if (look.isHeld) {
        fill = colours.facePressed;
    }
    const bool marked = look.isHovered || look.isChecked;
    return {fill,
            colours.lettering,
            colours.lesserLettering,
            fill == colours.face ? colours.kindOnFace(kind) : colours.kind(kind, fill),
            marked ? colours.accent : colours.edge,
            marked ? 1.5 : 1.0};
}

/// The top of the key, knob, pad: the widget without its margin.
QRectF bodyOf(const FaceLook& look) {
    const qreal margin = faceMargin * look.unit;
    return look.area.adjusted(margin, margin, -margin, -margin);
}

qreal radiusOf(const FaceLook& look, const QRectF& body) {
    switch (look.shape) {
        case FaceShape::Knob:
            return std::min(body.width(), body.height()) / 2;
        case FaceShape::Pad:
            return 2 * keyRadius * look.unit;
        case FaceShape::Layer:
        case FaceShape::Key:
        case FaceShape::Fader:
            break;
    }
    return keyRadius * look.unit;
}

qreal firstSizeOf(const FaceLook& look) {
    return (look.shape == FaceShape::Pad ? padFirstLineSize : firstLineSize) * look.unit;
}

qreal secondSizeOf(const FaceLook& look) {
    return (look.shape == FaceShape::Pad ? padSecondLineSize : secondLineSize) * look.unit;
}

QFont strongOf(const FaceLook& look) {
    QFont font = look.font;
    font.setWeight(QFont::DemiBold);
    return font;
}

/// Space of the signs before and behind the second line.
qreal signsWidthOf(const FaceLook& look, bool hasSecondLine) {
    const qreal gap = hasSecondLine ? signGap : 0;
    const qreal toggle = look.assignment.toggles ? toggleSignSize.width() + signGap : 0;
    return (kindSignSide + gap + toggle) * look.unit;
}

/// The part of a face that its lines are centred in.
QRectF lettersAreaOf(const FaceLook& look) {
    const QRectF body = bodyOf(look);
    switch (look.shape) {
        case FaceShape::Fader:
            return body.adjusted(0, body.height() - faderLettersHeight * look.unit, 0,
                                 -2 * look.unit);
        case FaceShape::Pad:
            return body.adjusted(0, 10 * look.unit, 0, 0);
        case FaceShape::Knob:
            return body.adjusted(0, 6 * look.unit, 0, 0);
        case FaceShape::Key:
        case FaceShape::Layer:
            break;
    }
    return body;
}

/// How wide the lettering may be.
qreal widestLettering(const FaceLook& look) {
    qreal inset = 2;
    if (look.shape == FaceShape::Knob || look.shape == FaceShape::Pad) {
        inset = 6;
    }
    return bodyOf(look).width() - 2 * inset * look.unit;
}

/// Puts the signs before and behind a line, and moves it so that all of them are centred together.
void placeSigns(FaceLines& lines, const FaceLook& look, QRectF& line) {
    const qreal side = kindSignSide * look.unit;
    const qreal left =
        line.center().x() - (signsWidthOf(look, line.width() > 0) + line.width()) / 2;
    const qreal middle = line.center().y();
    lines.kindSign = {left, middle - side / 2, side, side};
    line.moveLeft(left + side + (line.width() > 0 ? signGap * look.unit : 0));
    if (look.assignment.toggles) {
        const QSizeF size = toggleSignSize * look.unit;
        lines.toggleSign = {QPointF(line.right() + signGap * look.unit, middle - size.height() / 2),
                            size};
    }
}

void drawBody(QPainter& painter, const FaceLook& look, const Style& style, const QRectF& body) {
    const Outline outline = Outline{body, radiusOf(look, body)}.inside(style.edgeWidth / 2);
    if (!look.isEnabled) {
        paintRing(painter, outline, QPen(style.edge, style.edgeWidth, Qt::DashLine));
        return;
    }
    QLinearGradient light(outline.area.topLeft(), outline.area.bottomLeft());
    const bool raised = !look.isHeld && !look.isChecked;
    light.setColorAt(0, raised ? between(style.fill, Qt::white, 0.10) : style.fill);
    light.setColorAt(1, raised ? between(style.fill, Qt::black, 0.03) : style.fill);
    paintRounded(painter, outline, QPen(style.edge, style.edgeWidth), light);
}

/// The ring around a knob, from its lower left over the top to its lower right, and the mark that
/// stands for its position.
void drawKnob(QPainter& painter, const FaceLook& look, const SurfaceColours& colours,
              const Style& style, const QRectF& body) {
    constexpr int sixteenths = 16;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colours.groove, 2 * look.unit, Qt::SolidLine, Qt::FlatCap));
    const qreal half = look.unit;
    painter.drawArc(body.adjusted(half, half, -half, -half), -45 * sixteenths, 270 * sixteenths);
    const qreal inset = 3.5 * look.unit;
    const QRectF cap = body.adjusted(inset, inset, -inset, -inset);
    drawBody(painter, look, style, cap);
    painter.setPen(QPen(style.lettering, 2 * look.unit, Qt::SolidLine, Qt::RoundCap));
    const QPointF top(cap.center().x(), cap.top() + 3 * look.unit);
    painter.drawLine(top, top + QPointF(0, 4 * look.unit));
}

/// The slot with its scale, and the cap that slides in it.
void drawFader(QPainter& painter, const FaceLook& look, const SurfaceColours& colours,
               const Style& style, const QRectF& body) {
    const qreal unit = look.unit;
    const QRectF well = body.adjusted(1.5, 1.5, -1.5, -faderLettersHeight * unit);
    paintRounded(painter, {well, keyRadius * unit - 1}, Qt::NoPen,
                 between(style.fill, style.lettering, 0.07));
    const QRectF area = body.adjusted(0, 12 * unit, 0, -(faderLettersHeight + 10) * unit);
    const qreal middle = area.center().x();
    constexpr int marks = 11;
    painter.setPen(QPen(between(style.fill, style.lettering, 0.35), 1));
    for (int mark = 0; mark < marks; ++mark) {
        const qreal y = area.top() + area.height() * mark / (marks - 1);
        const qreal length = (mark % 5 == 0 ? 8 : 5) * unit;
        painter.drawLine(QPointF(middle - 7 * unit - length, y), QPointF(middle - 7 * unit, y));
        painter.drawLine(QPointF(middle + 7 * unit, y), QPointF(middle + 7 * unit + length, y));
    }
    const QRectF slot(middle - 2.5 * unit, area.top() - 4 * unit, 5 * unit,
                      area.height() + 8 * unit);
    paintRounded(painter, {slot, 2.5 * unit}, Qt::NoPen,
                 look.isChecked ? between(style.fill, Qt::black, 0.45) : colours.groove);

    const QRectF cap(middle - 13 * unit, area.top() + area.height() * 0.58, 26 * unit, 36 * unit);
    QLinearGradient light(cap.topLeft(), cap.bottomLeft());
    const QColor top = between(colours.face, colours.lettering, 0.12);
    light.setColorAt(0, top);
    light.setColorAt(0.48, between(colours.face, colours.lettering, 0.30));
    light.setColorAt(0.52, between(colours.face, colours.lettering, 0.04));
    light.setColorAt(1, top);
    paintRounded(painter, {cap, 3 * unit}, QPen(between(colours.face, colours.lettering, 0.6), 1),
                 light);
    painter.setPen(QPen(colours.lettering, 1.5 * unit));
    painter.drawLine(QPointF(cap.left() + 3 * unit, cap.center().y()),
                     QPointF(cap.right() - 3 * unit, cap.center().y()));
}

void drawLine(QPainter& painter, const LaidText& line, const QRectF& area) {
    const QPointF start(area.left(), area.center().y() - line.height / 2 + line.ascent);
    for (const QGlyphRun& glyphs : line.glyphs) {
        painter.drawGlyphRun(start, glyphs);
    }
}

void drawLines(QPainter& painter, const FaceLook& look, const Style& style, Lettering& lettering) {
    const FaceLines lines = linesOf(look, lettering);
    painter.setPen(style.lettering);
    drawLine(painter, lines.first, lines.firstArea);
    lettering.signs().drawKind(painter, lines.kindSign, look.assignment.kind, style.sign);
    if (look.assignment.toggles) {
        lettering.signs().drawToggle(painter, lines.toggleSign, style.lesserLettering, style.fill);
    }
    painter.setPen(style.lesserLettering);
    drawLine(painter, lines.second, lines.secondArea);
}

void drawCaption(QPainter& painter, const FaceLook& look, const Style& style) {
    QFont font = look.font;
    font.setPixelSize(std::max(static_cast<int>(captionSize * look.unit), smallestLettering));
    font.setBold(look.isChecked);  // thin strokes are hard to read on the accent
    painter.setFont(font);
    painter.setPen(style.lesserLettering);
    painter.drawText(captionAreaOf(look), Qt::AlignLeft | Qt::AlignVCenter, look.caption);
}

/// The lamp of a layer button, which is filled while the layer is the current one.
void drawLamp(QPainter& painter, const FaceLook& look, const SurfaceColours& colours,
              const Style& style, const QRectF& body) {
    const qreal unit = look.unit;
    const QRectF lamp(body.center().x() - 12 * unit, body.bottom() - 8 * unit, 24 * unit, 4 * unit);
    const QColor lit = look.isEnabled ? colours.accent : style.lettering;
    const QBrush fill = look.isChecked ? QBrush(lit) : QBrush(Qt::NoBrush);
    paintRounded(painter, {lamp, 2 * unit}, QPen(look.isChecked ? lit : style.edge, 1), fill);
}

void drawLayerNumber(QPainter& painter, const FaceLook& look, const Style& style) {
    QFont font = look.font;
    font.setPixelSize(std::max(static_cast<int>(firstLineSize * look.unit), smallestLettering));
    font.setBold(look.isChecked);
    painter.setFont(font);
    painter.setPen(style.lettering);
    painter.drawText(captionAreaOf(look), Qt::AlignCenter, look.caption);
}

void drawFocus(QPainter& painter, const FaceLook& look, const SurfaceColours& colours,
               const QRectF& body) {
    const qreal width = std::max(1.5 * look.unit, 1.5);
    const qreal out = faceMargin * look.unit - width / 2;
    paintRing(painter, Outline{body, radiusOf(look, body)}.inside(-out),
              QPen(colours.focus, width));
}

}  // namespace

/// The signs stand beside the second line; where that would be cut, beside the first.
FaceLines linesOf(const FaceLook& look, Lettering& lettering) {
    if (look.shape == FaceShape::Layer) {
        return {};
    }
    const auto [first, second] = look.assignment.faceLines();
    const QFont strong = strongOf(look);
    const qreal width = widestLettering(look);
    const qreal signs = signsWidthOf(look, !second.empty());

    const auto fit = [&lettering, &first = first, &second = second, &look, &strong](
                         FaceLines& lines, qreal firstWidest, qreal secondWidest) {
        lines.first =
            lettering.fitted(widgets::asText(first), strong, firstSizeOf(look), firstWidest);
        lines.second =
            lettering.fitted(widgets::asText(second), look.font, secondSizeOf(look), secondWidest);
    };
    FaceLines lines;
    fit(lines, width, width - signs);
    const bool besideFirst = lines.second.isCut;
    if (besideFirst) {
        fit(lines, width - signs, width);
    }

    const qreal side = kindSignSide * look.unit;
    const qreal firstHeight = lines.first.height;
    const qreal secondHeight = std::max(lines.second.height, side);
    const QRectF area = lettersAreaOf(look);
    const qreal middle = area.center().x();
    const qreal top = area.center().y() - (firstHeight + secondHeight) / 2;
    lines.firstArea = {middle - lines.first.width / 2, top, lines.first.width, firstHeight};
    lines.secondArea = {middle - lines.second.width / 2, top + firstHeight, lines.second.width,
                        secondHeight};
    placeSigns(lines, look, besideFirst ? lines.firstArea : lines.secondArea);
    return lines;
}

QRectF letteredAreaOf(const FaceLook& look, Lettering& lettering) {
    if (look.shape == FaceShape::Layer) {
        return look.area;
    }
    const qreal width = widestLettering(look);
    const auto highest = [&](const QFont& font, qreal size) {
        return lettering.fitted({}, font, size, width).height;
    };
    const qreal height = highest(strongOf(look), firstSizeOf(look)) +
                         std::max(highest(look.font, secondSizeOf(look)), kindSignSide * look.unit);
    const QRectF area = lettersAreaOf(look);
    return {area.left(), area.center().y() - height / 2, area.width(), height};
}

QRectF captionAreaOf(const FaceLook& look) {
    const QRectF body = bodyOf(look);
    if (look.shape == FaceShape::Layer) {
        return body.adjusted(0, 1, 0, -9 * look.unit);
    }
    const qreal inset = 6 * look.unit;
    return {body.left() + inset, body.top() + 4 * look.unit, body.width() - 2 * inset,
            14 * look.unit};
}

void paintFaceBody(QPainter& painter, const FaceLook& look, const SurfaceColours& colours) {
    painter.setRenderHint(QPainter::Antialiasing);
    const Style style = styleOf(look, colours);
    const QRectF body = bodyOf(look);
    if (look.shape == FaceShape::Knob) {
        drawKnob(painter, look, colours, style, body);
        return;
    }
    drawBody(painter, look, style, body);
    if (look.shape == FaceShape::Layer) {
        drawLamp(painter, look, colours, style, body);
    } else if (look.shape == FaceShape::Fader) {
        drawFader(painter, look, colours, style, body);
    }
}

void paintFaceLetters(QPainter& painter, const FaceLook& look, const SurfaceColours& colours,
                      Lettering& lettering) {
    painter.setRenderHint(QPainter::Antialiasing);
    const Style style = styleOf(look, colours);
    if (look.shape == FaceShape::Layer) {
        drawLayerNumber(painter, look, style);
    } else {
        drawLines(painter, look, style, lettering);
    }
    if (look.shape == FaceShape::Pad) {
        drawCaption(painter, look, style);
    }
    if (look.hasFocus) {
        drawFocus(painter, look, colours, bodyOf(look));
    }
}

}  // namespace qt::surface
