#pragma once

// What a control does, read from the image: the one place that faces, tool tips and screen readers
// ask. Pure functions; nothing here is a widget's business.
//
//   const Assignment solo = assignmentOf(state.sysData, layer, state.modes.machn_mod, 9);
//   solo.shortText();  // "CC 64", or in a DAW mode "SOLO CH.3"

#include <string>
#include <string_view>
#include <utility>

#include "config/control.h"
#include "config/layout.h"

namespace describe {

struct Assignment {
    config::MessageKind kind = config::MessageKind::Unknown;
    int channel = 0;         ///< 0 to 15 for MIDI channels 1 to 16
    int number = 0;          ///< note, controller or program, 0 to 127
    bool canToggle = false;  ///< it is a key or a button: the trigger choice means something
    bool toggles = false;    ///< false where it cannot toggle
    /// What the host of the DAW mode does with the message, as the lists of functions write it
    /// ("ASSIGNMENT:BANK Left"). Empty in User Defined mode, in HUI mode, which has no list, and
    /// where the host has no function for it.
    std::string_view hostFunction;

    /// For a face: "CC 16", "C#3", "PC 5", "Pitch", "?"; the host's function without the group
    /// before its colon ("BANK Left") where there is one.
    [[nodiscard]] std::string shortText() const;
    /// "ch 3".
    [[nodiscard]] std::string channelText() const;
    /// The two lines of a face: short text and channel; the host's function on two lines, the
    /// second the shorter one since signs stand beside it, or on one where it is a single word.
    [[nodiscard]] std::pair<std::string, std::string> faceLines() const;
    /// Kind and number within a sentence: "control change 64 Sustain", "note 10 A#-1", "pitch
    /// bend".
    [[nodiscard]] std::string messageText() const;
    /// "Control change 64 Sustain, channel 3, toggle", "SOLO CH.3: note 10 A#-1, channel 1,
    /// momentary". The trigger is named where the control has one.
    [[nodiscard]] std::string fullText() const;

    bool operator==(const Assignment&) const = default;
};

/// What a control (0 to 73) does in a layer (0 to 3) under a DAW mode. A control or layer that does
/// not exist sends an unknown message. Bytes of a damaged image are taken as they are.
[[nodiscard]] Assignment assignmentOf(const config::Image& image, int layer, int mode, int control);

/// "C#3": pitch and octave of a note as the lists of notes count and write them, so "C4" is note 60
/// and octave 0 has no digit. "Note 200" for what is no note, 128 and above.
[[nodiscard]] std::string noteText(int note);

/// "Note", "Control change", "Program change", "Pitch bend", "Unknown message".
[[nodiscard]] std::string_view nameOf(config::MessageKind kind);

}  // namespace describe
