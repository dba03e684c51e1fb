#pragma once

// What the image holds of a control in a layer: three bytes, and what the third of them says. The
// ways of reading and of writing that byte stand side by side here, since they differ on purpose.
//
//   a mode byte
//   +---+---+---+---+---+---+---+---+
//   | 7 | 6 | 5 | 4 | 3 | 2 | 1 | 0 |   6: toggle (set) or momentary
//   +---+---+---+---+---+---+---+---+   3 to 0: the message kind
//                                       4: set for the factory's pads of layers 1 to 3, which play
//                                          drums; 5 and 7: zero, except in an odd preset file

#include <cstddef>
#include <cstdint>

#include "config/layout.h"

namespace config {

// Where the bytes of a control (0 to 79) stand in a layer (0 to 3). A control of 127, "none",
// reaches the bytes 127 places behind the first, as the product's own accesses do: see `readByte`.
[[nodiscard]] constexpr std::size_t channelAt(int layer, int control) {
    return at(layer, channelOffset + static_cast<std::size_t>(control));
}
[[nodiscard]] constexpr std::size_t numberAt(int layer, int control) {
    return at(layer, numberOffset + static_cast<std::size_t>(control));
}
[[nodiscard]] constexpr std::size_t modeAt(int layer, int control) {
    return at(layer, modeOffset + static_cast<std::size_t>(control));
}

/// MIDI channel, 0 to 15 for channels 1 to 16.
[[nodiscard]] constexpr std::uint8_t channel(const Image& image, int layer, int control) {
    return readByte(image, channelAt(layer, control));
}
/// Note, controller or program number, 0 to 127.
[[nodiscard]] constexpr std::uint8_t number(const Image& image, int layer, int control) {
    return readByte(image, numberAt(layer, control));
}
/// Mode byte: see above.
[[nodiscard]] constexpr std::uint8_t mode(const Image& image, int layer, int control) {
    return readByte(image, modeAt(layer, control));
}
constexpr void setChannel(Image& image, int layer, int control, int value) {
    writeByte(image, channelAt(layer, control), value);
}
constexpr void setNumber(Image& image, int layer, int control, int value) {
    writeByte(image, numberAt(layer, control), value);
}
constexpr void setMode(Image& image, int layer, int control, int value) {
    writeByte(image, modeAt(layer, control), value);
}

enum class MessageKind { Note, ControlChange, ProgramChange, PitchBend, Unknown };

// The kind in a mode byte, read in four ways. They agree on notes, control and program changes, and
// differ on all else.

/// What the control sends. Pitch bend is a kind of its own here alone: the editor has no position
/// for it in its list of kinds.
[[nodiscard]] MessageKind sentKind(int modeByte);

/// What the editor shows when a control is selected: pitch bend, which has a number as well, as
/// control change. What is no kind at all stays unknown.
[[nodiscard]] MessageKind shownKind(int modeByte);

/// What the list of kinds is set to once a preset was loaded: a note, pitch bend too, unless the
/// byte says control change or program change. The next selection shows `shownKind` again.
[[nodiscard]] MessageKind kindAfterLoad(int modeByte);

/// What the list of kinds goes back to when its blank was chosen. It is worked out from bits 1 and
/// 2 alone, so that every byte has a kind.
[[nodiscard]] MessageKind kindBehindBlank(int modeByte);

/// Whether it is toggle; momentary otherwise.
[[nodiscard]] bool toggles(int modeByte);

// What a change makes of a mode byte. `kind` is one that is stored, not `Unknown`.

/// A kind chosen for one control, or forced by a host's mode: bit 4 goes with the old kind.
[[nodiscard]] int withKind(int modeByte, MessageKind kind);

/// The low four bits alone: how the store of the owner's assignments comes by its faders.
[[nodiscard]] int withKindKeepingBit4(int modeByte, MessageKind kind);

/// A trigger chosen for one control: it keeps the kind with bit 4, and clears bits 5 and 7.
[[nodiscard]] int withTrigger(int modeByte, bool toggle);

/// A trigger chosen for a whole layer: it changes bit 6 and no other.
[[nodiscard]] int withTriggerOfLayer(int modeByte, bool toggle);

}  // namespace config
