#include "editor/about.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ScriptedDesktop.h"

namespace editor {
namespace {

namespace journal = support::journal;
using testing::ElementsAre;

TEST(About, IsShownWithoutBlockingTheOtherWindows) {
    support::ScriptedDesktop desktop;
    about window;
    desktop.showWindow(window);
    EXPECT_TRUE(window.window().isVisible());
    EXPECT_EQ(desktop.modalRuns(), 0U);
    EXPECT_THAT(desktop.journal(), ElementsAre(journal::showWindow<about>()));
}

TEST(About, IsOnlyHiddenWhenClosedAndCanBeShownAgain) {
    support::ScriptedDesktop desktop;
    about controller;
    toolkit::Window& window = controller.window();
    for (int round = 0; round < 2; ++round) {
        desktop.showWindow(controller);
        EXPECT_TRUE(window.isVisible());
        window.close();
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(&controller.window(), &window);
    }
}

TEST(About, ClosingItEndsNothing) {
    support::ScriptedDesktop desktop;
    about controller;
    desktop.showWindow(controller);
    desktop.clearJournal();
    controller.window().close();
    EXPECT_THAT(desktop.journal(), testing::IsEmpty());
}

}  // namespace
}  // namespace editor
