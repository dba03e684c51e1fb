#include <array>
#include <limits>
#include <string_view>

#include "tables/ExpectTexts.h"
#include "tables/data.h"

namespace tables {
namespace {

// clang-format off
constexpr auto messageTypes = std::to_array<std::string_view>({
    "Note", "CC", "Program",
});

constexpr auto singleBlank = std::to_array<std::string_view>({
    " ",
});

constexpr auto models = std::to_array<std::string_view>({
    "Tormelk 3", "Tormelk 4", "Tormelk 5", "Tormelk 6",
});

constexpr auto channelModes = std::to_array<std::string_view>({
    "Single", "All Pads",
});

constexpr auto factoryModes = std::to_array<std::string_view>({
    "User Defined Mode", "Nuendo mode(MCP)", "Samplitude mode(MCP)",
    "Live mode(MCP)", "Logic mode(MCP)", "HUI mode(MCP)",
});

constexpr auto triggerModes = std::to_array<std::string_view>({
    "Momentary", "Toggle", "All Momentary", "All Toggle",
});

constexpr auto transportKeys = std::to_array<std::string_view>({
    "0) Loop", "1) Rewind", "2) Fast Forward", "3) Stop", "4) Play", "5) Record", "6) F1",
    "7) F2", "8) F3", "9) F4", "10) F5", "11) F6", "12) F7", "13) F8",
});

constexpr auto pedalVolumes = std::to_array<std::string_view>({
    "0) VOLUME 1", "1) VOLUME 2", "2) VOLUME 3", "3) VOLUME 4", "4) VOLUME 5",
    "5) VOLUME 6", "6) VOLUME 7", "7) VOLUME 8", "8) VOLUME MASTER",
});

constexpr auto velocityCurves = std::to_array<std::string_view>({
    "Curve0", "Curve1", "Curve2", "Curve3", "Curve4", "Const",
});
// clang-format on

TEST(Lists, MessageTypesAreNoteControlChangeAndProgram) {
    expectTexts(data::msgTyp(), messageTypes);
}

TEST(Lists, TheListThatOffersNothingIsASingleBlank) {
    expectTexts(data::kong(), singleBlank);
}

TEST(Lists, ModelsAreFour) {
    expectTexts(data::drvVer(), models);
}

TEST(Lists, APadsChannelIsItsOwnOrThatOfAllPads) {
    expectTexts(data::ChanMod(), channelModes);
}

TEST(Lists, FactoryModesStandInTheOrderOfTheModeByte) {
    expectTexts(data::Machin_Mod(), factoryModes);
}

TEST(Lists, TriggerModesAreMomentaryAndToggleForOneOrAll) {
    expectTexts(data::TrigMod(), triggerModes);
}

TEST(Lists, TransportKeysAreNumberedFromZero) {
    expectTexts(data::Mackie(), transportKeys);
}

TEST(Lists, PedalVolumesAreEightAndTheMaster) {
    expectTexts(data::Pedal(), pedalVolumes);
}

TEST(Lists, VelocityCurvesEndInTheConstantOne) {
    expectTexts(data::curv(), velocityCurves);
}

TEST(Lists, OfAFactoryModeAreTheNotesOfItsHost) {
    EXPECT_EQ(data::Midi_Msg1(0).data(), data::Note().data());
    EXPECT_EQ(data::Midi_Msg1(1).data(), data::ND().data());
    EXPECT_EQ(data::Midi_Msg1(2).data(), data::SP().data());
    EXPECT_EQ(data::Midi_Msg1(3).data(), data::LV().data());
    EXPECT_EQ(data::Midi_Msg1(4).data(), data::LG().data());
    EXPECT_EQ(data::Midi_Msg1(5).data(), data::Note().data());
    for (int mode = 0; mode <= 5; ++mode) {
        EXPECT_EQ(data::Midi_Msg1(mode).size(), 128U) << "mode " << mode;
    }
}

TEST(Lists, OfAnUnknownFactoryModeAreASingleBlank) {
    for (const int mode :
         {6, -1, 255, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        expectTexts(data::Midi_Msg1(mode), singleBlank);
    }
}

}  // namespace
}  // namespace tables
