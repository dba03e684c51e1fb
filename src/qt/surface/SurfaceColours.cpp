#include "qt/surface/SurfaceColours.h"

#include "qt/surface/contrast.h"

namespace qt::surface {

namespace {

constexpr int hues = 360;
/// Small letters are paler on the screen than their colour: their strokes are thinner than a pixel.
constexpr qreal forThinStrokes = 1.8;

/// How far around the colour circle a kind's hue lies from the theme's accent.
int turnOf(config::MessageKind kind) {
    switch (kind) {
        case config::MessageKind::Note:
            return 185;
        case config::MessageKind::ControlChange:
            return 0;
        case config::MessageKind::ProgramChange:
            return 85;
        case config::MessageKind::PitchBend:
            return 290;
        case config::MessageKind::Unknown:
            break;
    }
    return 150;
}

}  // namespace

SurfaceColours::SurfaceColours(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor button = palette.color(QPalette::Active, QPalette::Button);
    const bool dark = window.lightness() < text.lightness();

    body = dark ? between(window, Qt::black, 0.25) : between(window, text, 0.11);
    bodyEdge = between(body, text, 0.30);
    plate = dark ? between(body, text, 0.07) : between(body, text, 0.05);
    engraving = shadeFor(between(plate, text, 0.78), plate, readableContrast + forThinStrokes);
    face = dark ? between(button, text, 0.10) : between(button, Qt::white, 0.75);
    faceHovered = dark ? between(face, text, 0.14) : Qt::white;
    lettering = shadeFor(palette.color(QPalette::Active, QPalette::ButtonText), face, 7.0);
    facePressed = between(face, lettering, 0.16);
    lesserLettering =
        shadeFor(between(face, lettering, 0.72), facePressed, readableContrast + forThinStrokes);
    edge = shadeFor(between(face, text, 0.35), plate, 1.8);
    groove = dark ? between(body, Qt::black, 0.5) : between(body, text, 0.45);
    selectedLettering = palette.color(QPalette::Active, QPalette::HighlightedText);
    selected = shadeFor(palette.color(QPalette::Active, QPalette::Highlight), selectedLettering,
                        readableContrast + 0.4);
    accent = shadeFor(selected, face, visibleContrast + 0.3);
    focus = shadeFor(text, plate, 7.0);
    disabledLettering =
        shadeFor(between(plate, text, 0.5), plate, readableContrast + forThinStrokes);

    const int hue = palette.color(QPalette::Active, QPalette::Highlight).hslHue();
    constexpr int blue = 205;
    accentHue_ = hue < 0 ? blue : hue;  // a grey accent has no hue to start from
    std::size_t next = 0;
    for (QColor& colour : kindsOnFace_) {
        colour = this->kind(static_cast<config::MessageKind>(next++), face);
    }
}

QColor SurfaceColours::kind(config::MessageKind kind, const QColor& background) const {
    const bool dark = background.lightness() < 128;
    const int hue = (accentHue_ + turnOf(kind)) % hues;
    const QColor wanted = QColor::fromHsl(hue, dark ? 170 : 190, dark ? 165 : 100);
    return shadeFor(wanted, background, visibleContrast + 0.6);
}

}  // namespace qt::surface
