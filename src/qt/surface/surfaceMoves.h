#pragma once

// Where an arrow key leads on the controller. No widgets here: places are numbered, and the rule is
// a function of numbers.

#include "qt/surface/moves.h"

namespace qt::surface {

/// Places 0 to 73 are the tags of the controls' buttons; the layer buttons follow.
inline constexpr int firstModeLayerPlace = 74;
inline constexpr int firstPadLayerPlace = 78;
inline constexpr int placeCount = 82;

/// The place that a move leads to from another. Left and right go across the strips, and over
/// into keys, layer buttons and pads at about the same height; up and down stay within a strip, or
/// within the columns of keys and pads; Home and End go to the ends of a row. Where nothing lies
/// that way, and from a number that is no place, it is the place itself.
[[nodiscard]] int placeAfter(int place, Move move);

}  // namespace qt::surface
