#include <array>
#include <cstddef>
#include <string_view>

#include "tables/ExpectTexts.h"
#include "tables/data.h"

namespace tables {
namespace {

// clang-format off
constexpr auto everyLiveNote = std::to_array<std::string_view>({
    "-1(C)   REC CH.1",
    "-1(C#) REC CH.2",
    "-1(D)   REC CH.3",
    "-1(D#) REC CH.4",
    "-1(E)   REC CH.5",
    "-1(F)   REC CH.6",
    "-1(F#) REC CH.7",
    "-1(G)   REC CH.8",
    "-1(G#) SOLO CH.1",
    "-1(A)   SOLO CH.2",
    "-1(A#) SOLO CH.3",
    "-1(B)   SOLO CH.4",
    "(C)     SOLO CH.5",
    "(C#)   SOLO CH.6",
    "(D)     SOLO CH.7",
    "(D#)   SOLO CH.8",
    "(E)     MUTE CH.1",
    "(F)     MUTE CH.2",
    "(F#)   MUTE CH.3",
    "(G)     MUTE CH.4",
    "(G#)   MUTE CH.5",
    "(A)     MUTE CH.6",
    "(A#)   MUTE CH.7",
    "(B)     MUTE CH.8",
    "1(C)    SELECT CH.1",
    "1(C#)  SELECT CH.2",
    "1(D)    SELECT CH.3",
    "1(D#)  SELECT CH.4",
    "1(E)    SELECT CH.5",
    "1(F)    SELECT CH.6",
    "1(F#)  SELECT CH.7",
    "1(G)    SELECT CH.8",
    "1(G#)  Monitor CH.1",
    "1(A)    Monitor CH.2",
    "1(A#)  Monitor CH.3",
    "1(B)    Monitor CH.4",
    "2(C)    Monitor CH.5",
    "2(C#)  Monitor CH.6",
    "2(D)    Monitor CH.7",
    "2(D#)  Monitor CH.8",
    "2(E)    Track",
    "2(F)    Aux-Send",
    "2(F#)  PAN",
    "2(G)    Plug-in",
    "2(G#)  EQ",
    "2(A)    FX Send",
    "2(A#)  PADER BANKS <<",
    "2(B)    AADER BANKS >>",
    "3(C)    ADER BANKS <",
    "3(C#)  ADER BANKS >",
    "3(D)    FLIP",
    "3(D#)  Mixer",
    "3(E)    NAME/VALUE",
    "3(F)    SMPTE/BEATS",
    "3(F#)  F1",
    "3(G)    F2",
    "3(G#)  F3",
    "3(A)    F4",
    "3(A#)  F5",
    "3(B)    F6",
    "4(C)    F7",
    "4(C#)  F8",
    "4(D)    GLOBAL VIEW:MIDI TRACKS",
    "4(D#)  GLOBAL VIEW:INPUTS",
    "4(E)    GLOBAL VIEW:AUDIO TRACKS",
    "4(F)    GLOBAL VIEW:AUDIO INSTRUMENT",
    "4(F#)  GLOBAL VIEW:AUX",
    "4(G)    GLOBAL VIEW:BUSSES",
    "4(G#)  GLOBAL VIEW:OUTPUTS",
    "4(A)    GLOBAL VIEW:USER",
    "4(A#)  SHIFT",
    "4(B)    OPTION",
    "5(C)    SAVE",
    "5(C#)  CMD/ALT",
    "5(D)    R",
    "5(D#)  W",
    "5(E)    AUTOMATION:TRIM",
    "5(F)    Show/Hide Browser",
    "5(F#)  Show/clip detail view",
    "5(G)    Motors",
    "5(G#)  VST",
    "5(A)    Master",
    "5(A#)  UTILITIES:CANCEL",
    "5(B)    Shift",
    "6(C)    MARKER",
    "6(C#)  NUDGE",
    "6(D)    LOOP",
    "6(D#)  DROP",
    "6(E)    Prev",
    "6(F)    ADD",
    "6(F#)  NEX",
    "6(G)    REWIND",
    "6(G#)  FAST FWD",
    "6(A)    STOP",
    "6(A#)  PLAY",
    "6(B)    RECORD",
    "7(C)    Cursor UP",
    "7(C#)  Cursor DOWN",
    "7(D)    Cursor Left",
    "7(D#)  Cursor Right",
    "7(E)    Zoom",
    "7(F)    Scrub",
    "7(F#)  User Switch A",
    "7(G)    User Switch B",
    "7(G#)  Fader Touch CH.1",
    "7(A)    Fader Touch CH.2",
    "7(A#)  Fader Touch CH.3",
    "7(B)    Fader Touch CH.4",
    "8(C)    Fader Touch CH.5",
    "8(C#)  Fader Touch CH.6",
    "8(D)    Fader Touch CH.7",
    "8(D#)  Fader Touch CH.8",
    "8(E)    Fade Touch Master",
    "8(F)    SMPTE LED",
    "8(F#)  BEATS LED",
    "8(G)    RUDE SOLO LIGHT",
    "8(G#)  Relay click",
    "8(A)   - - -",
    "8(A#)  - - -",
    "8(B)   - - -",
    "9(C)   - - -",
    "9(C#)  - - -",
    "9(D)   - - -",
    "9(D#)  - - -",
    "9(E)   - - -",
    "9(F)   - - -",
    "9(F#)  - - -",
    "9(G)   - - -",
});
// clang-format on

TEST(LiveFunctions, NameEveryNoteAndWhatItDoes) {
    expectTexts(data::LV(), everyLiveNote);
}

TEST(LiveFunctions, Note39HasTheTwoBlanksOfASharp) {
    EXPECT_EQ(data::LV()[39], "2(D#)  Monitor CH.8");
}

TEST(LiveFunctions, DifferFromThoseOfSamplitudeAtNotes77And78Only) {
    for (std::size_t note = 0; note < 128; ++note) {
        const bool differs = note == 77 || note == 78;
        EXPECT_EQ(data::LV()[note] != data::SP()[note], differs) << "note " << note;
    }
}

}  // namespace
}  // namespace tables
