#include "tables/shortLists.h"

#include <array>
#include <string_view>

namespace tables {
namespace {

using namespace std::string_view_literals;

// "Scrud", "cansel" and "Metronom" stay: see data.h.

// clang-format off
constexpr std::array nuendoFunctions{
    "0)   EDIT"sv,
    "1)   Name/Value"sv,
    "2)   SMPTE/Beats"sv,
    "3)   F1"sv,
    "4)   F2"sv,
    "5)   F3"sv,
    "6)   F4"sv,
    "7)   F5"sv,
    "8)   F6"sv,
    "9)   F7"sv,
    "10)   F8"sv,
    "11)   save"sv,
    "12)   Mixer"sv,
    "13)   Motors"sv,
    "14)   VST"sv,
    "15)   Master"sv,
    "16)   Scrud"sv,
    "17)   Undo"sv,
};

constexpr std::array samplitudeFunctions{
    "0)   Mixer"sv,
    "1)   Name/Value"sv,
    "2)   SMPTE/Beats"sv,
    "3)   F1"sv,
    "4)   F2"sv,
    "5)   F3"sv,
    "6)   F4"sv,
    "7)   F5"sv,
    "8)   F6"sv,
    "9)   F7"sv,
    "10)   F8"sv,
    "11)   Control"sv,
    "12)   option"sv,
    "13)   Undo/(shift)redo"sv,
    "14)   Latch"sv,
    "15)   T"sv,
    "16)   tr"sv,
    "17)   cansel"sv,
    "18)   enter"sv,
    "19)   save"sv,
    "20)   Marker"sv,
    "21)   object"sv,
    "22)   Loop"sv,
    "23)   Punch"sv,
    "24)   SYNC"sv,
    "25)   Click(Metronom)AIO"sv,
    "26)   Scrud"sv,
};

constexpr std::array logicFunctions{
    "0)   Name/Value"sv,
    "1)   SMPTE/Beats"sv,
    "2)   F1"sv,
    "3)   F2"sv,
    "4)   F3"sv,
    "5)   F4"sv,
    "6)   F5"sv,
    "7)   F6"sv,
    "8)   F7"sv,
    "9)   F8"sv,
    "10)   control"sv,
    "11)   Mixer"sv,
    "12)   Motors"sv,
    "13)   VST"sv,
    "14)   Master"sv,
    "15)   Replace"sv,
    "16)   ADD"sv,
    "17)   Solo"sv,
    "18)   Scrud"sv,
    "19)   option"sv,
    "20)   Cmp/ACT"sv,
    "21)   Nudge"sv,
    "22)   Drop"sv,
    "23)   Marker"sv,
};
// clang-format on

}  // namespace

texts::List shortListForMode(int mode) {
    switch (mode) {
        case 1:
            return nuendoFunctions;
        case 2:
            return samplitudeFunctions;
        case 4:
            return logicFunctions;
        default:
            return {};
    }
}

}  // namespace tables
