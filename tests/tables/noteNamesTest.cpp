#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "tables/ExpectTexts.h"
#include "tables/data.h"

namespace tables {
namespace {

// clang-format off
constexpr auto notes0To128 = std::to_array<std::string_view>({
    "-1(C)",  "-1(C#)", "-1(D)",  "-1(D#)", "-1(E)",  "-1(F)",
    "-1(F#)", "-1(G)",  "-1(G#)", "-1(A)",  "-1(A#)", "-1(B)",
    "(C)",    "(C#)",   "(D)",    "(D#)",   "(E)",    "(F)",
    "(F#)",   "(G)",    "(G#)",   "(A)",    "(A#)",   "(B)",
    "1(C)",   "1(C#)",  "1(D)",   "1(D#)",  "1(E)",   "1(F)",
    "1(F#)",  "1(G)",   "1(G#)",  "1(A)",   "1(A#)",  "1(B)",
    "2(C)",   "2(C#)",  "2(D)",   "2(D#)",  "2(E)",   "2(F)",
    "2(F#)",  "2(G)",   "2(G#)",  "2(A)",   "2(A#)",  "2(B)",
    "3(C)",   "3(C#)",  "3(D)",   "3(D#)",  "3(E)",   "3(F)",
    "3(F#)",  "3(G)",   "3(G#)",  "3(A)",   "3(A#)",  "3(B)",
    "4(C)",   "4(C#)",  "4(D)",   "4(D#)",  "4(E)",   "4(F)",
    "4(F#)",  "4(G)",   "4(G#)",  "4(A)",   "4(A#)",  "4(B)",
    "5(C)",   "5(C#)",  "5(D)",   "5(D#)",  "5(E)",   "5(F)",
    "5(F#)",  "5(G)",   "5(G#)",  "5(A)",   "5(A#)",  "5(B)",
    "6(C)",   "6(C#)",  "6(D)",   "6(D#)",  "6(E)",   "6(F)",
    "6(F#)",  "6(G)",   "6(G#)",  "6(A)",   "6(A#)",  "6(B)",
    "7(C)",   "7(C#)",  "7(D)",   "7(D#)",  "7(E)",   "7(F)",
    "7(F#)",  "7(G)",   "7(G#)",  "7(A)",   "7(A#)",  "7(B)",
    "8(C)",   "8(C#)",  "8(D)",   "8(D#)",  "8(E)",   "8(F)",
    "8(F#)",  "8(G)",   "8(G#)",  "8(A)",   "8(A#)",  "8(B)",
    "9(C)",   "9(C#)",  "9(D)",   "9(D#)",  "9(E)",   "9(F)",
    "9(F#)",  "9(G)",   "9(G#)",
});

constexpr auto faderNotes = std::to_array<std::string_view>({
    "C3",  "C3#", "D3",  "D3#", "E3",  "F3",  "F3#", "G3",  "G3#", "A3",  "A3#", "B3",
    "C2",  "C2#", "D2",  "D2#", "E2",  "F2",  "F2#", "G2",  "G2#", "A2",  "A2#", "B2",
    "C1",  "C1#", "D1",  "D1#", "E1",  "F1",  "F1#", "G1",  "G1#", "A1",  "A1#", "B1",
    "C",   "C#",  "D",   "D#",  "E",   "F",   "F#",  "G",   "G#",  "A",   "A#",  "B",
    "C",   "C#",  "D",   "D#",  "E",   "F",   "F#",  "G",   "G#",  "A",   "A#",  "B",
    "C1",  "C1#", "D1",  "D1#", "E1",  "F1",  "F1#", "G1",  "G1#", "A1",  "A1#", "B1",
    "C2",  "C2#", "D2",  "D2#", "E2",  "F2",  "F2#", "G2",  "G2#", "A2",  "A2#", "B2",
    "C3",  "C3#", "D3",  "D3#", "E3",  "F3",  "F3#", "G3",  "G3#", "A3",  "A3#", "B3",
    "C4",  "C4#", "D4",  "D4#", "E4",  "F4",  "F4#", "G4",  "G4#", "A4",  "A4#", "B4",
    "C5",  "C5#", "D5",  "D5#", "E5",  "F5",  "F5#", "G5",  "G5#", "A5",  "A5#", "B5",
    "C6",  "C6#", "D6",  "D6#", "E6",  "F6",  "F6#", "G6",
});
// clang-format on

TEST(NoteNames, CountOctavesFromMinusOneAndLeaveOutTheZero) {
    expectTexts(data::Note(), std::span(notes0To128).first<128>());
}

TEST(NoteNames, OfOctaveZeroHaveNoDigit) {
    EXPECT_EQ(data::Note()[11], "-1(B)");
    EXPECT_EQ(data::Note()[12], "(C)");
    EXPECT_EQ(data::Note()[23], "(B)");
    EXPECT_EQ(data::Note()[24], "1(C)");
}

TEST(NoteNames, EndAtNote127) {
    ASSERT_EQ(data::Note().size(), 128U);
    EXPECT_EQ(data::Note().back(), "9(G)");
}

TEST(NoteNames, GoOneFurtherInTheListOf129) {
    expectTexts(data::P_CC(), notes0To128);
    ASSERT_EQ(data::P_CC().size(), 129U);
    EXPECT_EQ(data::P_CC().back(), "9(G#)");
}

TEST(FaderNotes, PutTheLetterFirstAndLoseSomeOctaves) {
    expectTexts(data::fader(), faderNotes);
}

TEST(FaderNotes, RepeatThemselves) {
    const texts::List notes = data::fader();
    for (std::size_t note = 0; note < 36; ++note) {
        // The three lowest octaves run down where those from note 60 run up.
        const std::size_t block = note / 12;
        EXPECT_EQ(notes[note], notes[60 + (2 - block) * 12 + note % 12]) << "note " << note;
    }
    for (std::size_t note = 36; note < 48; ++note) {
        EXPECT_EQ(notes[note], notes[note + 12]) << "note " << note;
    }
}

}  // namespace
}  // namespace tables
