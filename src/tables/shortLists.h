#pragma once

// The short function lists: what seven of the strip buttons offer in a factory mode instead of the
// notes of its host.

#include "texts/List.h"

namespace tables {

/// The short list of a factory mode (a position in `data::Machin_Mod`): Nuendo, Samplitude and
/// Logic have one. Empty for every other number.
[[nodiscard]] texts::List shortListForMode(int mode);

/// Whether a control offers the short list: strip buttons 21 to 28 without 23. False for any other
/// number.
[[nodiscard]] constexpr bool isShortListControl(int control) {
    return 20 < control && control <= 28 && control != 23;
}

}  // namespace tables
