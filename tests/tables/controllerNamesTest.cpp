#include <array>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>

#include "tables/ExpectTexts.h"
#include "tables/data.h"

namespace tables {
namespace {

// clang-format off
constexpr auto controllers = std::to_array<std::string_view>({
    "0 Bank MSB",          "1 Modulation",        "2 Breath",            "3 ",
    "4 Foot Controller",   "5 Portamento Time",   "6 Data Entry MSB",    "7 Volme",
    "8 Balance",           "9 ",                  "10 Pan",              "11 Expression",
    "12 ",                 "13 ",                 "14 ",                 "15 ",
    "16 ",                 "17 ",                 "18 ",                 "19 ",
    "20 ",                 "21 ",                 "22 ",                 "23 ",
    "24 ",                 "25 ",                 "26 ",                 "27 ",
    "28 ",                 "29 ",                 "30 ",                 "31 ",
    "32 ",                 "33 ",                 "34 ",                 "35 ",
    "36 ",                 "37 ",                 "38 Data Entry LSB",   "39 ",
    "40 ",                 "41 ",                 "42 ",                 "43 ",
    "44 ",                 "45 ",                 "46 ",                 "47 ",
    "48 ",                 "49 ",                 "50 ",                 "51 ",
    "52 ",                 "53 ",                 "54 ",                 "55 ",
    "56 ",                 "57 ",                 "58 ",                 "59 ",
    "60 ",                 "61 ",                 "62 ",                 "63 ",
    "64 Sustain",          "65 Portamento",       "66 Pedal-Sostenuto",  "67 Pedal-Soft",
    "68 ",                 "69 Hold 2",           "70 ",                 "71 Harmonic Content",
    "72 Release Time",     "73 Attack Time",      "74 Brightness",       "75 ",
    "76 ",                 "77 ",                 "78 ",                 "79 ",
    "80 ",                 "81 ",                 "82 ",                 "83 ",
    "84 Portamento Ctrl",  "85 ",                 "86 ",                 "87 ",
    "88 ",                 "89 ",                 "90 ",                 "91 Reverb Depth",
    "92 Tremolo Depth",    "93 Chorus Depth",     "94 Celeste Depth",    "95 Phaser Depth",
    "96 Data Increment",   "97 Data Decrement",   "98  LSB",             "99  MSB",
    "100 RPN LSB",         "101 RPN MSB",         "102 ",                "103 ",
    "104 ",                "105 ",                "106 ",                "107 ",
    "108 ",                "109 ",                "110 ",                "111 ",
    "112 ",                "113 ",                "114 ",                "115 ",
    "116 ",                "117 ",                "118 ",                "119 ",
    "120 All Soend Off",   "121 Reset Cntrl",     "122  Local Cntrl",    "123 All Notes Off",
    "124 Omni Off",        "125 Omni On",         "126 Mono On",         "127 Poly On",
});

constexpr auto namedControllers = std::to_array<std::int32_t>({
    0, 1, 2, 4, 5, 6, 7, 8, 11, 12,
    38, 64, 65, 36, 67, 68, 71, 72, 73, 74,
    84, 91, 92, 93, 94, 95, 96, 97, 98, 99,
    100, 101, 120, 121, 122, 123, 124, 125, 126, 127,
});
// clang-format on

TEST(ControllerNames, AreNumberBlankAndName) {
    expectTexts(data::CC(), controllers);
}

TEST(ControllerNames, EndInABlankWhereThereIsNoName) {
    EXPECT_EQ(data::CC()[3], "3 ");
    EXPECT_EQ(data::CC()[12], "12 ");
}

TEST(ControllerNames, KeepTheirOddTexts) {
    EXPECT_EQ(data::CC()[7], "7 Volme");
    EXPECT_EQ(data::CC()[98], "98  LSB");
    EXPECT_EQ(data::CC()[99], "99  MSB");
    EXPECT_EQ(data::CC()[120], "120 All Soend Off");
    EXPECT_EQ(data::CC()[122], "122  Local Cntrl");
}

TEST(ControllerNames, OfTheNamesOnlyListDepartFromTheNamedControllers) {
    static_assert(std::is_same_v<decltype(data::ccArray), const std::array<std::int32_t, 40>>);
    EXPECT_EQ(data::ccArray, namedControllers);
}

TEST(ControllerNames, StandAtTheirOwnNumber) {
    for (const int number : {0, 1, 64, 127, 128, 1000, -1, std::numeric_limits<int>::max(),
                             std::numeric_limits<int>::min()}) {
        EXPECT_EQ(data::Get_CC_Key(number), number);
        EXPECT_EQ(data::Get_CC_Value(number), number);
    }
}

}  // namespace
}  // namespace tables
