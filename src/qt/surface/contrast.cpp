#include "qt/surface/contrast.h"

#include <algorithm>
#include <cmath>

namespace qt::surface {

namespace {

/// Luminance relative to white's, by the sRGB transfer curve.
qreal luminance(const QColor& colour) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

qreal contrast(const QColor& a, const QColor& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor between(const QColor& from, const QColor& to, qreal share) {
    const auto mix = [share](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * share));
    };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor shadeFor(const QColor& wanted, const QColor& background, qreal least) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    const QColor& end = contrast(black, background) > contrast(white, background) ? black : white;
    constexpr int steps = 40;
    for (int step = 0; step < steps; ++step) {
        const QColor shade = between(wanted, end, static_cast<qreal>(step) / steps);
        if (contrast(shade, background) >= least) {
            return shade;
        }
    }
    return end;
}

}  // namespace qt::surface
