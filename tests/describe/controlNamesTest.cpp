#include "describe/controlNames.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

#include "config/layout.h"

namespace describe {
namespace {

TEST(ControlNames, SayWhereAControlIs) {
    EXPECT_EQ(controlName(0), "Strip 1, Select");
    EXPECT_EQ(controlName(9), "Strip 3, Solo");
    EXPECT_EQ(controlName(22), "Strip 6, Mute");
    EXPECT_EQ(controlName(31), "Strip 8, Rec");
    EXPECT_EQ(controlName(32), "Layer key 1: channel left");
    EXPECT_EQ(controlName(33), "Layer key 2: channel right");
    EXPECT_EQ(controlName(34), "Layer key 3: bank left");
    EXPECT_EQ(controlName(35), "Layer key 4: bank right");
    EXPECT_EQ(controlName(36), "Transport key 1: play");
    EXPECT_EQ(controlName(37), "Transport key 2: stop");
    EXPECT_EQ(controlName(38), "Transport key 3: rewind");
    EXPECT_EQ(controlName(39), "Transport key 4: fast forward");
    EXPECT_EQ(controlName(41), "Encoder 2, push");
    EXPECT_EQ(controlName(49), "Encoder 2");
    EXPECT_EQ(controlName(58), "Fader 3");
    EXPECT_EQ(controlName(63), "Fader 8");
    EXPECT_EQ(controlName(64), "Master fader");
}

TEST(ControlNames, CallThePadsByTheirPlaceOnTheController) {
    // Control 65 to 73, the places counted in reading order.
    constexpr std::array<int, 9> places = {4, 5, 9, 8, 2, 1, 6, 3, 7};
    for (int pad = 0; pad < 9; ++pad) {
        const std::string expected =
            "Pad " + std::to_string(places.at(static_cast<std::size_t>(pad)));
        EXPECT_EQ(controlName(65 + pad), expected);
        EXPECT_EQ(controlCaption(65 + pad), expected);
    }
}

TEST(ControlNames, PrintShortCaptions) {
    EXPECT_EQ(controlCaption(20), "Select");
    EXPECT_EQ(controlCaption(21), "Solo");
    EXPECT_EQ(controlCaption(22), "Mute");
    EXPECT_EQ(controlCaption(23), "Rec");
    EXPECT_EQ(controlCaption(32), "Ch Left");
    EXPECT_EQ(controlCaption(35), "Bank Right");
    EXPECT_EQ(controlCaption(36), "Play");
    EXPECT_EQ(controlCaption(39), "Fast Fwd");
    EXPECT_EQ(controlCaption(40), "Push");
    EXPECT_EQ(controlCaption(48), "Encoder");
    EXPECT_EQ(controlCaption(56), "Fader");
    EXPECT_EQ(controlCaption(64), "Fader");
}

TEST(ControlNames, NoTwoControlsShareAName) {
    std::set<std::string> names;
    for (int control = 0; control < config::buttonCount; ++control) {
        names.insert(controlName(control));
    }
    EXPECT_EQ(names.size(), 74U);
    EXPECT_FALSE(names.contains(""));
}

TEST(ControlNames, AreEmptyWhereThereIsNoButton) {
    for (const int control : {-1, 74, 79, 127, 1000}) {
        EXPECT_EQ(controlName(control), "") << control;
        EXPECT_EQ(controlCaption(control), "") << control;
    }
}

TEST(ControlNames, TheButtonsOfThePadsGoThroughTheirMap) {
    constexpr std::array<int, 9> controls = {70, 69, 72, 65, 66, 71, 73, 68, 67};
    for (int tag = 0; tag < config::buttonCount; ++tag) {
        const int expected = tag < 65 ? tag : controls.at(static_cast<std::size_t>(tag - 65));
        EXPECT_EQ(controlOfTag(tag), expected);
        EXPECT_EQ(tagOfControl(expected), tag);
    }
    EXPECT_EQ(tagOfControl(127), 127);
}

}  // namespace
}  // namespace describe
