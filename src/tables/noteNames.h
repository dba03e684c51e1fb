#pragma once

#include <array>
#include <string_view>

#include "tables/TextTable.h"

namespace tables {

constexpr int notesPerOctave = 12;

/// The pitch of a note that is not negative: "C" to "B", sharps with their "#".
constexpr std::string_view pitchName(int note) {
    constexpr std::array<std::string_view, notesPerOctave> names{"C",  "C#", "D",  "D#", "E",  "F",
                                                                 "F#", "G",  "G#", "A",  "A#", "B"};
    return names.at(static_cast<std::size_t>(note % notesPerOctave));
}

constexpr bool isSharp(int note) {
    return pitchName(note).size() > 1;
}

/// The name of a note that is not negative: its octave, counted from -1, and its pitch, as in
/// "-1(C)" and "4(F#)". Octave 0 is written as nothing at all: "(C)".
constexpr void appendNoteName(Text& text, int note) {
    const int octave = note / notesPerOctave - 1;
    if (octave != 0) {
        text.append(octave);
    }
    text.append('(');
    text.append(pitchName(note));
    text.append(')');
}

}  // namespace tables
