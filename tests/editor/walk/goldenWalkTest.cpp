#include <gtest/gtest.h>

#include "editor/walk/ModelDriver.h"
#include "editor/walk/Walk.h"

namespace {

TEST(GoldenWalk, EveryStepLeavesImageStateAndScreenAsWorkedOutByHand) {
    walk::ModelDriver driver;
    walk::Walk walk(driver);
    walk::walkAll(walk);
    EXPECT_GT(walk.steps(), 200);
}

TEST(GoldenWalk, BesideAnOpenPadEditorAFreshWindowShowsBlanksFoundAtTheTriggerBoxesLastPosition) {
    walk::ModelDriver driver;
    walk::Walk walk(driver);
    walk::Expected& e = walk.expected;
    const auto select = [&driver](int control) {
        driver.state().pads.pad_modal = 1;
        driver.controller().dataChgCore(control);
        driver.state().pads.pad_modal = 0;
    };

    walk.directly(
        "no box has a blank yet; the trigger box has four items", [&] { select(4); },
        [&] {
            e.selects(4, 4);
            e.cc.fill(walk::List::Nothing);
            e.type.showBlank();
            e.chan.showBlank();
            e.trig.showBlank();
        });
    walk.directly(
        "now it has five, and the type box only four", [&] { select(5); },
        [&] {
            e.selects(5, 5);
            e.type.blanks = 2;
            e.type.selected = 4;
            e.chan.blanks = 2;
            e.chan.selected = 17;
        });
}

}  // namespace
