#pragma once

#include <string_view>

#include "toolkit/ComboBox.h"

namespace toolkit {

/// The position of the item that a person means who types `typed`, looked for from `from` on and
/// around; -1 if none fits. Of the items that fit, those win that begin with the text ("60 General"
/// for "60"), then those with a word that begins with it ("64 Sustain" for "sus"), capital or
/// small. A number that stands in no item is a position (the note for "60").
[[nodiscard]] int findItem(const ComboBox& box, std::string_view typed, int from);

}  // namespace toolkit
