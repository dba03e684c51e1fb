#include <array>
#include <string_view>

#include "tables/TextTable.h"
#include "tables/data.h"

namespace tables {
namespace {

struct NamedController {
    int number;
    std::string_view text;
};

// "Volme", "Soend" and the doubled blanks of 98, 99 and 122 stay: see data.h.
constexpr std::array<NamedController, 40> namedControllers{{
    {0, "0 Bank MSB"},
    {1, "1 Modulation"},
    {2, "2 Breath"},
    {4, "4 Foot Controller"},
    {5, "5 Portamento Time"},
    {6, "6 Data Entry MSB"},
    {7, "7 Volme"},
    {8, "8 Balance"},
    {10, "10 Pan"},
    {11, "11 Expression"},
    {38, "38 Data Entry LSB"},
    {64, "64 Sustain"},
    {65, "65 Portamento"},
    {66, "66 Pedal-Sostenuto"},
    {67, "67 Pedal-Soft"},
    {69, "69 Hold 2"},
    {71, "71 Harmonic Content"},
    {72, "72 Release Time"},
    {73, "73 Attack Time"},
    {74, "74 Brightness"},
    {84, "84 Portamento Ctrl"},
    {91, "91 Reverb Depth"},
    {92, "92 Tremolo Depth"},
    {93, "93 Chorus Depth"},
    {94, "94 Celeste Depth"},
    {95, "95 Phaser Depth"},
    {96, "96 Data Increment"},
    {97, "97 Data Decrement"},
    {98, "98  LSB"},
    {99, "99  MSB"},
    {100, "100 RPN LSB"},
    {101, "101 RPN MSB"},
    {120, "120 All Soend Off"},
    {121, "121 Reset Cntrl"},
    {122, "122  Local Cntrl"},
    {123, "123 All Notes Off"},
    {124, "124 Omni Off"},
    {125, "125 Omni On"},
    {126, "126 Mono On"},
    {127, "127 Poly On"},
}};

/// A controller without a name is its number and the blank a name would have followed.
constexpr void writeController(Text& text, int number) {
    for (const NamedController& named : namedControllers) {
        if (named.number == number) {
            text.append(named.text);
            return;
        }
    }
    text.append(number);
    text.append(' ');
}

constexpr auto controllerTexts = writeTexts<128>(writeController);
constexpr auto controllers = viewsOf(controllerTexts);

}  // namespace

texts::List data::CC() {
    return controllers;
}

}  // namespace tables
