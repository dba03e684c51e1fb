#pragma once

// What the controls of the controller are called, by control index, and which button stands for
// which control.

#include <string>

namespace describe {

/// "Strip 3, Solo", "Encoder 2", "Encoder 2, push", "Fader 3", "Master fader", "Layer key 1:
/// channel left", "Transport key 1: play", "Pad 5". A pad is called by its place on the controller,
/// in reading order of the three rows. Empty for an index that has no button (74 and above, 127).
[[nodiscard]] std::string controlName(int control);

/// What is printed on the controller beside it: "Solo", "Push", "Encoder", "Fader", "Ch Left",
/// "Play", "Pad 5". Empty where there is no button.
[[nodiscard]] std::string controlCaption(int control);

/// The control behind a button's tag (0 to 73): the tag itself, except that the pads' go through
/// `aPadMap`.
[[nodiscard]] int controlOfTag(int tag);

/// The tag of a control's button; the inverse of `controlOfTag`.
[[nodiscard]] int tagOfControl(int control);

}  // namespace describe
