#pragma once

// Where everything on the controller stands, left to right: what the rows are called, eight strips,
// the master fader under the key to the signs, then keys, layer buttons and pads.

#include "qt/surface/casePlan.h"

namespace qt::surface {

/// The whole case.
inline constexpr QSizeF planSize(960, 520);

/// The place of a control's face, by the tag of its button (0 to 73).
[[nodiscard]] Place placeOfTag(int tag);
/// The places of the layer buttons, 0 to 3.
[[nodiscard]] Place placeOfModeLayer(int layer);
[[nodiscard]] Place placeOfPadLayer(int layer);

/// The case of the controller.
[[nodiscard]] CasePlan surfaceCase();

}  // namespace qt::surface
