#include "toolkit/Button.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace toolkit {
namespace {

using testing::ElementsAre;

constexpr std::array allClicks = {Button::Click::Keeps, Button::Click::Lights,
                                  Button::Click::Flips};

TEST(Button, IsOffAndEnabledAtFirst) {
    const Button button(Button::Click::Lights, 73);
    EXPECT_EQ(button.tag(), 73);
    EXPECT_EQ(button.state(), 0);
    EXPECT_TRUE(button.isEnabled());
}

TEST(Button, TakesAnotherTag) {
    Button button;
    EXPECT_EQ(button.tag(), 0);
    button.setTag(39);
    EXPECT_EQ(button.tag(), 39);
}

TEST(Button, ACommandKeepsItsStateWhenClicked) {
    Button button;
    button.click();
    EXPECT_EQ(button.state(), 0);
    button.setState(1);
    button.click();
    EXPECT_EQ(button.state(), 1);
}

TEST(Button, AClickLightsAControlAndNeverPutsItOut) {
    Button button(Button::Click::Lights);
    button.click();
    EXPECT_EQ(button.state(), 1);
    button.click();
    EXPECT_EQ(button.state(), 1);
}

TEST(Button, AClickFlipsATwoStateButton) {
    Button button(Button::Click::Flips);
    button.click();
    EXPECT_EQ(button.state(), 1);
    button.click();
    EXPECT_EQ(button.state(), 0);
}

TEST(Button, TheActionRunsAfterTheStateChangedWithTheButtonAsSender) {
    Button button(Button::Click::Lights, 12);
    std::vector<int> states;
    button.action = [&](Button& sender) {
        EXPECT_EQ(&sender, &button);
        EXPECT_EQ(sender.tag(), 12);
        states.push_back(sender.state());
    };
    button.click();
    EXPECT_THAT(states, ElementsAre(1));
}

TEST(Button, TheActionRunsWithEveryClickAlsoIfTheButtonWasLitAlready) {
    for (const Button::Click click : allClicks) {
        Button button(click);
        int runs = 0;
        button.action = [&](Button&) { ++runs; };
        button.click();
        button.click();
        button.click();
        EXPECT_EQ(runs, 3);
    }
}

TEST(Button, TheActionMayPutTheButtonOutAgain) {
    Button button(Button::Click::Lights);
    button.action = [](Button& sender) { sender.setState(0); };
    button.click();
    EXPECT_EQ(button.state(), 0);
}

TEST(Button, AStateSetByTheProgramRunsNoAction) {
    Button button(Button::Click::Flips);
    button.action = [](Button&) { FAIL() << "the action ran"; };
    button.setState(1);
    button.setState(0);
    button.setEnabled(false);
    button.setEnabled(true);
}

TEST(Button, ADisabledButtonTakesNoClick) {
    for (const Button::Click click : allClicks) {
        Button button(click);
        button.action = [](Button&) { FAIL() << "the action ran"; };
        button.setEnabled(false);
        button.click();
        EXPECT_EQ(button.state(), 0);
        EXPECT_FALSE(button.isEnabled());
    }
}

TEST(Button, AButtonThatIsEnabledAgainTakesClicks) {
    Button button(Button::Click::Lights);
    button.setEnabled(false);
    button.setEnabled(true);
    button.click();
    EXPECT_EQ(button.state(), 1);
}

TEST(Button, TheStateOfADisabledButtonCanBeSetByTheProgram) {
    Button button;
    button.setEnabled(false);
    button.setState(1);
    EXPECT_EQ(button.state(), 1);
}

TEST(Button, AClickWithoutAnActionOrAViewIsHarmless) {
    for (const Button::Click click : allClicks) {
        Button button(click);
        button.click();
    }
}

TEST(Button, TellsItsViewOfChangesOnly) {
    Button button(Button::Click::Lights);
    int told = 0;
    button.onChange = [&] { ++told; };
    button.setState(0);
    button.setEnabled(true);
    EXPECT_EQ(told, 0);
    button.setState(1);
    EXPECT_EQ(told, 1);
    button.setEnabled(false);
    EXPECT_EQ(told, 2);
    button.setState(1);
    button.setEnabled(false);
    button.click();
    EXPECT_EQ(told, 2);
}

TEST(Button, TheViewSeesAClickBeforeTheActionRuns) {
    Button button(Button::Click::Flips);
    std::vector<std::string> order;
    button.onChange = [&] { order.emplace_back("view"); };
    button.action = [&](Button&) { order.emplace_back("action"); };
    button.click();
    EXPECT_THAT(order, ElementsAre("view", "action"));
}

}  // namespace
}  // namespace toolkit
