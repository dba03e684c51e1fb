#include "describe/assignment.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "config/buildImageAndStores.h"
#include "config/modes.h"

namespace describe {
namespace {

using namespace config;

/// The image of a fresh start under a DAW mode.
Image freshImage(int mode) {
    Image image{};
    Stores stores;
    buildImageAndStores(image, stores);
    if (mode == userDefinedMode) {
        restoreUserDefined(image, stores);
    }
    return image;
}

/// An image in which one control of layer 0 sends something.
Assignment sent(int modeByte, int channel, int number, int control = 9,
                int mode = userDefinedMode) {
    Image image{};
    setMode(image, 0, control, modeByte);
    setChannel(image, 0, control, channel);
    setNumber(image, 0, control, number);
    return assignmentOf(image, 0, mode, control);
}

TEST(Assignment, TellsTheFourKindsApartByTheLowFourBits) {
    EXPECT_EQ(sent(0x09, 0, 0).kind, MessageKind::Note);
    EXPECT_EQ(sent(0x19, 0, 0).kind, MessageKind::Note);
    EXPECT_EQ(sent(0x4B, 0, 0).kind, MessageKind::ControlChange);
    EXPECT_EQ(sent(0x0C, 0, 0).kind, MessageKind::ProgramChange);
    EXPECT_EQ(sent(0x0E, 0, 0).kind, MessageKind::PitchBend);
    for (const int other : {0x00, 0x08, 0x0A, 0x0D, 0x0F, 0xF0}) {
        EXPECT_EQ(sent(other, 0, 0).kind, MessageKind::Unknown) << other;
    }
}

TEST(Assignment, SaysInAWordWhatIsSent) {
    EXPECT_EQ(sent(0x0B, 0, 16).shortText(), "CC 16");
    EXPECT_EQ(sent(0x09, 0, 49).shortText(), "C#3");
    EXPECT_EQ(sent(0x0C, 0, 5).shortText(), "PC 5");
    EXPECT_EQ(sent(0x0E, 0, 56).shortText(), "Pitch");
    EXPECT_EQ(sent(0x08, 0, 56).shortText(), "?");
    EXPECT_EQ(sent(0x0B, 2, 16).channelText(), "ch 3");
    EXPECT_EQ(sent(0x0B, 15, 16).channelText(), "ch 16");
}

TEST(Assignment, SaysInFullWhatIsSent) {
    EXPECT_EQ(sent(0x4B, 2, 64).fullText(), "Control change 64 Sustain, channel 3, toggle");
    EXPECT_EQ(sent(0x0B, 2, 7).fullText(), "Control change 7 Volme, channel 3, momentary");
    EXPECT_EQ(sent(0x0B, 0, 3).fullText(), "Control change 3, channel 1, momentary");
    EXPECT_EQ(sent(0x0B, 0, 98).fullText(), "Control change 98  LSB, channel 1, momentary");
    EXPECT_EQ(sent(0x09, 0, 60).fullText(), "Note 60 C4, channel 1, momentary");
    EXPECT_EQ(sent(0x0C, 9, 112).fullText(), "Program change 112, channel 10, momentary");
    EXPECT_EQ(sent(0x0E, 8, 64, 64).fullText(), "Pitch bend, channel 9");
    EXPECT_EQ(sent(0x08, 0, 1).fullText(), "Unknown message, channel 1, momentary");
}

TEST(Assignment, NamesNotesAsTheListOfNotesDoes) {
    EXPECT_EQ(noteText(0), "C-1");
    EXPECT_EQ(noteText(1), "C#-1");
    EXPECT_EQ(noteText(11), "B-1");
    EXPECT_EQ(noteText(12), "C");
    EXPECT_EQ(noteText(23), "B");
    EXPECT_EQ(noteText(24), "C1");
    EXPECT_EQ(noteText(60), "C4");
    EXPECT_EQ(noteText(127), "G9");
    EXPECT_EQ(noteText(128), "Note 128");
    EXPECT_EQ(noteText(-1), "Note -1");
}

TEST(Assignment, TakesTheBytesOfADamagedImageAsTheyAre) {
    EXPECT_EQ(sent(0x09, 200, 255).fullText(), "Note 255, channel 201, momentary");
    EXPECT_EQ(sent(0x0B, 16, 200).fullText(), "Control change 200, channel 17, momentary");
    EXPECT_EQ(sent(0x09, 0, 200, 9, nuendoMode).hostFunction, "");
    EXPECT_EQ(sent(0x0E, 9, 0, 64, nuendoMode).hostFunction, "");
}

TEST(Assignment, TogglesOnlyWhereTheControlHasATrigger) {
    for (int control = 0; control < buttonCount; ++control) {
        const bool has = control < 48;
        EXPECT_EQ(sent(0x49, 0, 0, control).canToggle, has) << control;
        EXPECT_EQ(sent(0x49, 0, 0, control).toggles, has) << control;
        EXPECT_FALSE(sent(0x09, 0, 0, control).toggles) << control;
    }
    EXPECT_EQ(sent(0x49, 0, 60, 47).fullText(), "Note 60 C4, channel 1, toggle");
    EXPECT_EQ(sent(0x49, 0, 60, 70).fullText(), "Note 60 C4, channel 1");
}

TEST(Assignment, NamesTheFunctionOfEachHost) {
    struct Function {
        int note;
        int mode;
        const char* full;
        const char* onFace;
    };
    // clang-format off
    constexpr std::array<Function, 14> functions{{
        {10, nuendoMode,     "SOLO CH.3",                 "SOLO CH.3"},
        {10, samplitudeMode, "SOLO CH.3",                 "SOLO CH.3"},
        {32, nuendoMode,     "V_Select CH.1",             "V_Select CH.1"},
        {32, liveMode,       "Monitor CH.1",              "Monitor CH.1"},
        {39, logicMode,      "V_Select CH.8",             "V_Select CH.8"},
        {40, nuendoMode,     "Page UP",                   "Page UP"},
        {40, logicMode,      "ASSIGNMENT:TRACK",          "TRACK"},
        {40, samplitudeMode, "Track",                     "Track"},
        {46, nuendoMode,     "ASSIGNMENT:BANK Left",      "BANK Left"},
        {46, samplitudeMode, "PADER BANKS <<",            "PADER BANKS <<"},
        {49, logicMode,      "ASSIGNMENT:Right",          "Right"},
        {78, liveMode,       "Show/clip detail view",     "Show/clip detail view"},
        {78, samplitudeMode, "Mixer",                     "Mixer"},
        {94, liveMode,       "PLAY",                      "PLAY"},
    }};
    // clang-format on
    for (const Function& row : functions) {
        const Assignment assignment = sent(0x09, 0, row.note, 9, row.mode);
        EXPECT_EQ(assignment.hostFunction, row.full) << row.note << " in mode " << row.mode;
        EXPECT_EQ(assignment.shortText(), row.onFace) << row.note << " in mode " << row.mode;
    }
    EXPECT_EQ(sent(0x49, 0, 10, 9, nuendoMode).fullText(),
              "SOLO CH.3: note 10 A#-1, channel 1, toggle");
}

TEST(Assignment, NamesWhatEncodersAndFadersMoveInAHost) {
    for (const int mode : {nuendoMode, samplitudeMode, liveMode, logicMode}) {
        EXPECT_EQ(sent(0x0B, 0, 16, 48, mode).shortText(), "V-Pot CH.1");
        EXPECT_EQ(sent(0x0B, 0, 23, 55, mode).fullText(),
                  "V-Pot CH.8: control change 23, channel 1");
        EXPECT_EQ(sent(0x0E, 2, 58, 58, mode).fullText(), "Fader CH.3: pitch bend, channel 3");
        EXPECT_EQ(sent(0x0E, 8, 64, 64, mode).shortText(), "Fader Master");
    }
    EXPECT_EQ(sent(0x0B, 0, 15, 48, nuendoMode).shortText(), "CC 15");
    EXPECT_EQ(sent(0x0B, 0, 24, 48, nuendoMode).shortText(), "CC 24");
    EXPECT_EQ(sent(0x0B, 1, 16, 48, nuendoMode).shortText(), "CC 16");
    EXPECT_EQ(sent(0x0C, 0, 16, 48, nuendoMode).shortText(), "PC 16");
}

TEST(Assignment, SaysWhatIsSentWhereTheHostHasNoFunctionForIt) {
    EXPECT_EQ(sent(0x09, 0, 117, 9, nuendoMode).shortText(), "A8") << "written \"- - -\"";
    EXPECT_EQ(sent(0x09, 9, 10, 70, nuendoMode).shortText(), "A#-1") << "drums on channel 10";
    EXPECT_EQ(sent(0x09, 0, 10, 9, huiMode).shortText(), "A#-1");
    EXPECT_EQ(sent(0x0B, 0, 16, 48, huiMode).shortText(), "CC 16");
    EXPECT_EQ(sent(0x0E, 0, 56, 56, huiMode).shortText(), "Pitch");
    EXPECT_EQ(sent(0x09, 0, 10, 9, userDefinedMode).shortText(), "A#-1");
    EXPECT_EQ(sent(0x09, 0, 10, 9, 6).shortText(), "A#-1");
}

TEST(Assignment, FillsTheTwoLinesOfAFace) {
    using Lines = std::pair<std::string, std::string>;
    EXPECT_EQ(sent(0x0B, 2, 16).faceLines(), Lines("CC 16", "ch 3"));
    EXPECT_EQ(sent(0x0E, 8, 64, 64).faceLines(), Lines("Pitch", "ch 9"));
    EXPECT_EQ(sent(0x09, 0, 10, 9, nuendoMode).faceLines(), Lines("SOLO", "CH.3"));
    EXPECT_EQ(sent(0x09, 0, 0, 9, nuendoMode).faceLines(), Lines("REC", "CH.1"));
    EXPECT_EQ(sent(0x09, 0, 94, 9, nuendoMode).faceLines(), Lines("PLAY", ""));
    EXPECT_EQ(sent(0x09, 0, 46, 9, nuendoMode).faceLines(), Lines("BANK", "Left"));
    EXPECT_EQ(sent(0x09, 0, 46, 9, liveMode).faceLines(), Lines("PADER", "BANKS <<"));
    EXPECT_EQ(sent(0x09, 0, 78, 9, liveMode).faceLines(), Lines("Show/clip", "detail view"));
    EXPECT_EQ(sent(0x09, 0, 10, 9, huiMode).faceLines(), Lines("A#-1", "ch 1"));
}

TEST(Assignment, SendsAnUnknownMessageWhereThereIsNoSuchControlOrLayer) {
    const Image image = freshImage(nuendoMode);
    for (const int control : {-1, 74, 79, 127}) {
        EXPECT_EQ(assignmentOf(image, 0, 0, control), Assignment()) << control;
    }
    for (const int layer : {-1, 4, 255}) {
        EXPECT_EQ(assignmentOf(image, layer, 0, 0), Assignment()) << layer;
    }
}

TEST(Assignment, EveryControlOfEveryLayerAndModeHasTexts) {
    for (int mode = 0; mode <= huiMode; ++mode) {
        const Image image = freshImage(mode);
        for (int layer = 0; layer < layerCount; ++layer) {
            for (int control = 0; control < buttonCount; ++control) {
                const Assignment shown = assignmentOf(image, layer, mode, control);
                const std::string brief = shown.shortText();
                EXPECT_NE(shown.kind, MessageKind::Unknown);
                EXPECT_FALSE(brief.empty() || brief.front() == ' ' || brief.back() == ' ');
                EXPECT_LE(brief.size(), 24U) << brief;
                EXPECT_EQ(brief.find_first_of("()"), std::string::npos) << brief;
                const std::string full = shown.fullText();
                EXPECT_NE(full.find(", channel " + std::to_string(shown.channel + 1)),
                          std::string::npos);
                const bool hasFunction =
                    mode != userDefinedMode && mode != huiMode && (!isPad(control) || layer == 0);
                EXPECT_EQ(!shown.hostFunction.empty(), hasFunction) << control << ' ' << full;
                const bool toggles = control < 48 && layer >= 2;
                EXPECT_EQ(shown.toggles, toggles) << control << ' ' << full;
            }
        }
    }
}

TEST(Assignment, TheFactoryFacesReadAsTheControllerIsLaidOut) {
    const auto text = [image = freshImage(nuendoMode)](int control) {
        return assignmentOf(image, 0, nuendoMode, control).shortText();
    };
    EXPECT_EQ(text(20), "SELECT CH.6");
    EXPECT_EQ(text(21), "SOLO CH.6");
    EXPECT_EQ(text(22), "MUTE CH.6");
    EXPECT_EQ(text(23), "REC CH.6");
    EXPECT_EQ(text(32), "CHANNEL Left");
    EXPECT_EQ(text(33), "CHANNEL Right");
    EXPECT_EQ(text(34), "BANK Left");
    EXPECT_EQ(text(35), "BANK Right");
    EXPECT_EQ(text(36), "PLAY");
    EXPECT_EQ(text(40), "V_Select CH.1");
    EXPECT_EQ(text(48), "V-Pot CH.1");
    EXPECT_EQ(text(64), "Fader Master");
    EXPECT_EQ(text(65), "CYCLE");
}

TEST(Assignment, ThePitchBendFadersBecomeControlChangesInUserDefinedMode) {
    const auto fader = [](int mode) {
        return assignmentOf(freshImage(mode), 2, mode, 59).fullText();
    };
    EXPECT_EQ(fader(userDefinedMode), "Control change 59, channel 4");
    EXPECT_EQ(fader(nuendoMode), "Fader CH.4: pitch bend, channel 4");
}

}  // namespace
}  // namespace describe
