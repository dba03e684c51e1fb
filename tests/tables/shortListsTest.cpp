#include <array>
#include <limits>
#include <string_view>
#include <vector>

#include "tables/ExpectTexts.h"
#include "tables/shortLists.h"

namespace tables {
namespace {

// clang-format off
constexpr auto nuendo = std::to_array<std::string_view>({
    "0)   EDIT",
    "1)   Name/Value",
    "2)   SMPTE/Beats",
    "3)   F1",
    "4)   F2",
    "5)   F3",
    "6)   F4",
    "7)   F5",
    "8)   F6",
    "9)   F7",
    "10)   F8",
    "11)   save",
    "12)   Mixer",
    "13)   Motors",
    "14)   VST",
    "15)   Master",
    "16)   Scrud",
    "17)   Undo",
});

constexpr auto samplitude = std::to_array<std::string_view>({
    "0)   Mixer",
    "1)   Name/Value",
    "2)   SMPTE/Beats",
    "3)   F1",
    "4)   F2",
    "5)   F3",
    "6)   F4",
    "7)   F5",
    "8)   F6",
    "9)   F7",
    "10)   F8",
    "11)   Control",
    "12)   option",
    "13)   Undo/(shift)redo",
    "14)   Latch",
    "15)   T",
    "16)   tr",
    "17)   cansel",
    "18)   enter",
    "19)   save",
    "20)   Marker",
    "21)   object",
    "22)   Loop",
    "23)   Punch",
    "24)   SYNC",
    "25)   Click(Metronom)AIO",
    "26)   Scrud",
});

constexpr auto logic = std::to_array<std::string_view>({
    "0)   Name/Value",
    "1)   SMPTE/Beats",
    "2)   F1",
    "3)   F2",
    "4)   F3",
    "5)   F4",
    "6)   F5",
    "7)   F6",
    "8)   F7",
    "9)   F8",
    "10)   control",
    "11)   Mixer",
    "12)   Motors",
    "13)   VST",
    "14)   Master",
    "15)   Replace",
    "16)   ADD",
    "17)   Solo",
    "18)   Scrud",
    "19)   option",
    "20)   Cmp/ACT",
    "21)   Nudge",
    "22)   Drop",
    "23)   Marker",
});
// clang-format on

TEST(ShortLists, OfNuendoHas18Functions) {
    EXPECT_EQ(shortListForMode(1).size(), 18U);
    expectTexts(shortListForMode(1), nuendo);
}

TEST(ShortLists, OfSamplitudeHas27Functions) {
    EXPECT_EQ(shortListForMode(2).size(), 27U);
    expectTexts(shortListForMode(2), samplitude);
}

TEST(ShortLists, OfLogicHas24Functions) {
    EXPECT_EQ(shortListForMode(4).size(), 24U);
    expectTexts(shortListForMode(4), logic);
}

TEST(ShortLists, AreEmptyInEveryOtherMode) {
    for (const int mode :
         {0, 3, 5, 6, 255, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_TRUE(shortListForMode(mode).empty()) << "mode " << mode;
    }
}

TEST(ShortLists, BelongToSevenStripButtons) {
    std::vector<int> controls;
    for (int control = -300; control <= 300; ++control) {
        if (isShortListControl(control)) {
            controls.push_back(control);
        }
    }
    EXPECT_EQ(controls, (std::vector<int>{21, 22, 24, 25, 26, 27, 28}));
    EXPECT_FALSE(isShortListControl(std::numeric_limits<int>::max()));
    EXPECT_FALSE(isShortListControl(std::numeric_limits<int>::min()));
}

}  // namespace
}  // namespace tables
