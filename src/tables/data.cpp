#include "tables/data.h"

#include <array>
#include <string_view>

namespace tables {
namespace {

using namespace std::string_view_literals;

constexpr std::array messageTypes{"Note"sv, "CC"sv, "Program"sv};

constexpr std::array nothing{" "sv};

constexpr std::array models{"Tormelk 3"sv, "Tormelk 4"sv, "Tormelk 5"sv, "Tormelk 6"sv};

constexpr std::array channelModes{"Single"sv, "All Pads"sv};

// clang-format off
constexpr std::array factoryModes{
    "User Defined Mode"sv,
    "Nuendo mode(MCP)"sv,
    "Samplitude mode(MCP)"sv,
    "Live mode(MCP)"sv,
    "Logic mode(MCP)"sv,
    "HUI mode(MCP)"sv,
};

constexpr std::array triggerModes{
    "Momentary"sv,     "Toggle"sv,
    "All Momentary"sv, "All Toggle"sv,
};

constexpr std::array transportKeys{
    "0) Loop"sv, "1) Rewind"sv, "2) Fast Forward"sv, "3) Stop"sv, "4) Play"sv, "5) Record"sv,
    "6) F1"sv,   "7) F2"sv,     "8) F3"sv,           "9) F4"sv,
    "10) F5"sv,  "11) F6"sv,    "12) F7"sv,          "13) F8"sv,
};

constexpr std::array pedalVolumes{
    "0) VOLUME 1"sv, "1) VOLUME 2"sv, "2) VOLUME 3"sv, "3) VOLUME 4"sv,
    "4) VOLUME 5"sv, "5) VOLUME 6"sv, "6) VOLUME 7"sv, "7) VOLUME 8"sv,
    "8) VOLUME MASTER"sv,
};

constexpr std::array velocityCurves{
    "Curve0"sv, "Curve1"sv, "Curve2"sv, "Curve3"sv, "Curve4"sv, "Const"sv,
};
// clang-format on

}  // namespace

texts::List data::msgTyp() {
    return messageTypes;
}
texts::List data::kong() {
    return nothing;
}
texts::List data::drvVer() {
    return models;
}
texts::List data::ChanMod() {
    return channelModes;
}
texts::List data::Machin_Mod() {
    return factoryModes;
}
texts::List data::TrigMod() {
    return triggerModes;
}
texts::List data::Mackie() {
    return transportKeys;
}
texts::List data::Pedal() {
    return pedalVolumes;
}
texts::List data::curv() {
    return velocityCurves;
}

texts::List data::Midi_Msg1(int mode) {
    switch (mode) {
        case 0:  // user defined
        case 5:  // HUI
            return Note();
        case 1:
            return ND();
        case 2:
            return SP();
        case 3:
            return LV();
        case 4:
            return LG();
        default:
            return kong();
    }
}

}  // namespace tables
