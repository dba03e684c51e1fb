// What each note does in the host of a factory mode. The hosts share most functions; Nuendo differs
// from Logic, and Samplitude from Live, in a few notes only.

#include <array>
#include <stdexcept>
#include <string_view>

#include "tables/TextTable.h"
#include "tables/data.h"
#include "tables/noteNames.h"

namespace tables {
namespace {

enum class Host { Nuendo, Logic, Samplitude, Live };

struct NoteFunction {
    int note;
    std::string_view text;
};

/// A note whose function depends on the host, for the two hosts of a table.
struct HostFunctions {
    int note;
    std::string_view first;
    std::string_view second;
};

constexpr int notesPerBank = 8;
constexpr int firstNoteAfterBanks = 40;
constexpr int firstNoteWithoutFunction = 117;

// Odd spellings in these tables ("SENT", "PADER", "AADER", "ADER", "NEX", "Fade Touch") stay, and
// so does Logic's "ASSIGNMENT:Right" beside its "ASSIGNMENT:CHANNEL Left": see data.h.

// clang-format off
constexpr std::array<NoteFunction, 53> sharedFunctions{{
    {50,  "FLIP"},
    {52,  "NAME/VALUE"},
    {53,  "SMPTE/BEATS"},
    {54,  "F1"},
    {55,  "F2"},
    {56,  "F3"},
    {57,  "F4"},
    {58,  "F5"},
    {59,  "F6"},
    {60,  "F7"},
    {61,  "F8"},
    {62,  "GLOBAL VIEW:MIDI TRACKS"},
    {63,  "GLOBAL VIEW:INPUTS"},
    {64,  "GLOBAL VIEW:AUDIO TRACKS"},
    {65,  "GLOBAL VIEW:AUDIO INSTRUMENT"},
    {66,  "GLOBAL VIEW:AUX"},
    {67,  "GLOBAL VIEW:BUSSES"},
    {68,  "GLOBAL VIEW:OUTPUTS"},
    {69,  "GLOBAL VIEW:USER"},
    {70,  "SHIFT"},
    {71,  "OPTION"},
    {73,  "CMD/ALT"},
    {76,  "AUTOMATION:TRIM"},
    {82,  "UTILITIES:CANCEL"},
    {84,  "MARKER"},
    {85,  "NUDGE"},
    {87,  "DROP"},
    {91,  "REWIND"},
    {92,  "FAST FWD"},
    {93,  "STOP"},
    {94,  "PLAY"},
    {95,  "RECORD"},
    {96,  "Cursor UP"},
    {97,  "Cursor DOWN"},
    {98,  "Cursor Left"},
    {99,  "Cursor Right"},
    {100, "Zoom"},
    {101, "Scrub"},
    {102, "User Switch A"},
    {103, "User Switch B"},
    {104, "Fader Touch CH.1"},
    {105, "Fader Touch CH.2"},
    {106, "Fader Touch CH.3"},
    {107, "Fader Touch CH.4"},
    {108, "Fader Touch CH.5"},
    {109, "Fader Touch CH.6"},
    {110, "Fader Touch CH.7"},
    {111, "Fader Touch CH.8"},
    {112, "Fade Touch Master"},
    {113, "SMPTE LED"},
    {114, "BEATS LED"},
    {115, "RUDE SOLO LIGHT"},
    {116, "Relay click"},
}};

constexpr std::array<HostFunctions, 24> nuendoAndLogic{{
    //   Nuendo                      Logic
    {40, "Page UP",                  "ASSIGNMENT:TRACK"},
    {41, "Page DOWN",                "ASSIGNMENT:SENT"},
    {42, "ASSIGNMENT:PAN/SURROUND",  "ASSIGNMENT:PAN/SURROUND"},
    {43, "ASSIGNMENT:PLUG-IN",       "ASSIGNMENT:PLUG-IN"},
    {44, "ASSIGNMENT:EQ",            "ASSIGNMENT:EQ"},
    {45, "FX Send",                  "ASSIGNMENT:INSTRUMENT"},
    {46, "ASSIGNMENT:BANK Left",     "ASSIGNMENT:BANK Left"},
    {47, "ASSIGNMENT:BANK Right",    "ASSIGNMENT:BANK Right"},
    {48, "ASSIGNMENT:CHANNEL Left",  "ASSIGNMENT:CHANNEL Left"},
    {49, "ASSIGNMENT:CHANNEL Right", "ASSIGNMENT:Right"},
    {51, "GLOBAL VIEW",              "GLOBAL VIEW"},
    {72, "CONTROL",                  "CONTROL"},
    {74, "AUTOMATION:READ/OFF",      "AUTOMATION:READ/OFF"},
    {75, "AUTOMATION:WRITE",         "AUTOMATION:WRITE"},
    {77, "AUTOMATION:TOUCH",         "AUTOMATION:TOUCH"},
    {78, "AUTOMATION:LATCH",         "AUTOMATION:LATCH"},
    {79, "GROUP",                    "GROUP"},
    {80, "UTILITIES:SAVE",           "UTILITIES:SAVE"},
    {81, "UTILITIES:UNDO",           "UTILITIES:UNDO"},
    {83, "UTILITIES:ENTER",          "UTILITIES:ENTER"},
    {86, "CYCLE",                    "CYCLE"},
    {88, "REPLACE",                  "REPLACE"},
    {89, "CLICK",                    "CLICK"},
    {90, "SOLO",                     "SOLO"},
}};

constexpr std::array<HostFunctions, 24> samplitudeAndLive{{
    //   Samplitude          Live
    {40, "Track",            "Track"},
    {41, "Aux-Send",         "Aux-Send"},
    {42, "PAN",              "PAN"},
    {43, "Plug-in",          "Plug-in"},
    {44, "EQ",               "EQ"},
    {45, "FX Send",          "FX Send"},
    {46, "PADER BANKS <<",   "PADER BANKS <<"},
    {47, "AADER BANKS >>",   "AADER BANKS >>"},
    {48, "ADER BANKS <",     "ADER BANKS <"},
    {49, "ADER BANKS >",     "ADER BANKS >"},
    {51, "Mixer",            "Mixer"},
    {72, "SAVE",             "SAVE"},
    {74, "R",                "R"},
    {75, "W",                "W"},
    {77, "AUTOMATION:TOUCH", "Show/Hide Browser"},
    {78, "Mixer",            "Show/clip detail view"},
    {79, "Motors",           "Motors"},
    {80, "VST",              "VST"},
    {81, "Master",           "Master"},
    {83, "Shift",            "Shift"},
    {86, "LOOP",             "LOOP"},
    {88, "Prev",             "Prev"},
    {89, "ADD",              "ADD"},
    {90, "NEX",              "NEX"},
}};
// clang-format on

/// The five functions that every channel strip has, one note for each of eight channels.
constexpr std::string_view bankFunction(Host host, int bank) {
    const bool selectsValue = host == Host::Nuendo || host == Host::Logic;
    const std::array<std::string_view, 5> functions{"REC", "SOLO", "MUTE", "SELECT",
                                                    selectsValue ? "V_Select" : "Monitor"};
    return functions.at(static_cast<std::size_t>(bank));
}

constexpr std::string_view ownFunction(Host host, int note) {
    const bool usesFirstTable = host == Host::Nuendo || host == Host::Logic;
    const bool isFirstOfTable = host == Host::Nuendo || host == Host::Samplitude;
    for (const HostFunctions& row : usesFirstTable ? nuendoAndLogic : samplitudeAndLive) {
        if (row.note == note) {
            return isFirstOfTable ? row.first : row.second;
        }
    }
    throw std::logic_error("a note has no function");  // stops the compilation
}

constexpr std::string_view singleFunction(Host host, int note) {
    for (const NoteFunction& row : sharedFunctions) {
        if (row.note == note) {
            return row.text;
        }
    }
    return ownFunction(host, note);
}

/// The blanks between note name and function. They line the functions up only roughly, and note 39
/// has one blank more for Nuendo and Logic than for the others; it stays so: see data.h.
constexpr int blanksAfterName(Host host, int note) {
    if (note == 39 && (host == Host::Nuendo || host == Host::Logic)) {
        return 3;
    }
    if (note < 12) {
        return isSharp(note) ? 1 : 3;
    }
    if (note < 24) {
        return isSharp(note) ? 3 : 5;
    }
    if (note < firstNoteWithoutFunction) {
        return isSharp(note) ? 2 : 4;
    }
    return isSharp(note) ? 2 : 3;
}

constexpr void appendFunction(Text& text, Host host, int note) {
    if (note < firstNoteAfterBanks) {
        text.append(bankFunction(host, note / notesPerBank));
        text.append(" CH.");
        text.append(note % notesPerBank + 1);
    } else if (note < firstNoteWithoutFunction) {
        text.append(singleFunction(host, note));
    } else {
        text.append("- - -");
    }
}

constexpr auto writeFunctionsOf(Host host) {
    return writeTexts<128>([host](Text& text, int note) {
        appendNoteName(text, note);
        text.appendBlanks(blanksAfterName(host, note));
        appendFunction(text, host, note);
    });
}

constexpr auto nuendoTexts = writeFunctionsOf(Host::Nuendo);
constexpr auto logicTexts = writeFunctionsOf(Host::Logic);
constexpr auto samplitudeTexts = writeFunctionsOf(Host::Samplitude);
constexpr auto liveTexts = writeFunctionsOf(Host::Live);

constexpr auto nuendoNotes = viewsOf(nuendoTexts);
constexpr auto logicNotes = viewsOf(logicTexts);
constexpr auto samplitudeNotes = viewsOf(samplitudeTexts);
constexpr auto liveNotes = viewsOf(liveTexts);

}  // namespace

texts::List data::ND() {
    return nuendoNotes;
}
texts::List data::LG() {
    return logicNotes;
}
texts::List data::SP() {
    return samplitudeNotes;
}
texts::List data::LV() {
    return liveNotes;
}

}  // namespace tables
