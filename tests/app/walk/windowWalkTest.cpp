#include <gtest/gtest.h>

#include "app/walk/WindowDriver.h"
#include "editor/walk/Walk.h"

namespace {

using Hand = walk::WindowDriver::Hand;

// Between the two every click and every choice is made by the mouse and by the keyboard.

TEST(WindowWalk, EveryStepByMouseAndKeyboardInTurnLeavesWhatWasWorkedOutByHand) {
    walk::WindowDriver driver(Hand::Mouse);
    walk::Walk walk(driver);
    walk::walkAll(walk);
    EXPECT_GT(walk.steps(), 200);
}

TEST(WindowWalk, EveryStepByKeyboardAndMouseInTurnLeavesWhatWasWorkedOutByHand) {
    walk::WindowDriver driver(Hand::Keyboard);
    walk::Walk walk(driver);
    walk::walkAll(walk);
    EXPECT_GT(walk.steps(), 200);
}

}  // namespace
