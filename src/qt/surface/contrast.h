#pragma once

// Colours by how far apart they are to the eye, so that lettering stays readable in any theme.

#include <QColor>

namespace qt::surface {

/// The contrast that lettering needs against what is behind it.
inline constexpr qreal readableContrast = 4.5;
/// The contrast that a sign or an outline needs.
inline constexpr qreal visibleContrast = 3.0;

/// The contrast ratio of two colours: 1 (none) to 21 (black and white).
[[nodiscard]] qreal contrast(const QColor& a, const QColor& b);

/// A colour between two, `share` (0 to 1) of the way to the second.
[[nodiscard]] QColor between(const QColor& from, const QColor& to, qreal share);

/// `wanted`, or the nearest shade of it towards black or white that has at least this contrast to
/// the background.
[[nodiscard]] QColor shadeFor(const QColor& wanted, const QColor& background, qreal least);

}  // namespace qt::surface
