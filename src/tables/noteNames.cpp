#include "tables/noteNames.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "tables/data.h"

namespace tables {
namespace {

constexpr auto noteTexts = writeTexts<128>(appendNoteName);
constexpr auto noteTextsAndOneMore = writeTexts<129>(appendNoteName);

// The octaves of `fader` have lost the minus signs of the first three and the digits of the two
// in the middle, so that many of its texts come twice: an item is told by its position alone.
constexpr std::array<std::string_view, 11> faderOctaves{"3", "2", "1", "",  "", "1",
                                                        "2", "3", "4", "5", "6"};

constexpr void writeFaderNote(Text& text, int note) {
    text.append(pitchName(note).front());
    text.append(faderOctaves.at(static_cast<std::size_t>(note / notesPerOctave)));
    if (isSharp(note)) {
        text.append('#');
    }
}

constexpr auto faderTexts = writeTexts<128>(writeFaderNote);

constexpr auto notes = viewsOf(noteTexts);
constexpr auto notesAndOneMore = viewsOf(noteTextsAndOneMore);
constexpr auto faderNotes = viewsOf(faderTexts);

}  // namespace

texts::List data::Note() {
    return notes;
}
texts::List data::P_CC() {
    return notesAndOneMore;
}
texts::List data::fader() {
    return faderNotes;
}

}  // namespace tables
