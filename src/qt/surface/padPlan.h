#pragma once

// Where everything in the pad editor's drawing stands: the buttons of pad layers 2 to 4 above the
// nine pads.

#include "qt/surface/casePlan.h"

namespace qt::surface {

/// How many there are: pad layers 2 to 4.
inline constexpr int editedPadLayers = 3;

/// The place of a pad, 0 to 8 in reading order.
[[nodiscard]] Place placeOfPad(int position);
/// The place of a pad layer's button; 0 stands for pad layer 2.
[[nodiscard]] Place placeOfEditedLayer(int index);

[[nodiscard]] CasePlan padCase();

}  // namespace qt::surface
