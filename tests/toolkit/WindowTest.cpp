#include "toolkit/Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using WindowChange = Window::Change;

class WindowTest : public testing::Test {
protected:
    WindowTest() {
        window.windowWillClose = [this] { visibleAtClose.push_back(window.isVisible()); };
        window.onChange = [this](WindowChange change) { changes.push_back(change); };
    }

    Window window;
    std::vector<bool> visibleAtClose;  // one entry for each windowWillClose
    std::vector<WindowChange> changes;
};

TEST(Window, IsHiddenAndWithoutTitleAtFirst) {
    const Window window;
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.title(), "");
}

TEST_F(WindowTest, TakesATitle) {
    window.setTitle("Tormelk Wyro");
    EXPECT_EQ(window.title(), "Tormelk Wyro");
    EXPECT_THAT(changes, ElementsAre(WindowChange::Title));
    window.setTitle("Tormelk Wyro");
    EXPECT_THAT(changes, ElementsAre(WindowChange::Title));
}

TEST_F(WindowTest, ComesToTheFrontVisible) {
    window.makeKeyAndOrderFront();
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(changes, ElementsAre(WindowChange::Visibility, WindowChange::Front));
}

TEST_F(WindowTest, ComesToTheFrontAgainWhereItIsVisibleAlready) {
    window.makeKeyAndOrderFront();
    changes.clear();
    window.makeKeyAndOrderFront();
    EXPECT_THAT(changes, ElementsAre(WindowChange::Front));
}

TEST_F(WindowTest, HidesWithoutClosing) {
    window.makeKeyAndOrderFront();
    window.orderOut();
    EXPECT_FALSE(window.isVisible());
    EXPECT_THAT(visibleAtClose, IsEmpty());
    changes.clear();
    window.orderOut();
    EXPECT_THAT(changes, IsEmpty());
    window.makeKeyAndOrderFront();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(WindowTest, TellsThatItWillCloseAndHidesAfterwards) {
    window.makeKeyAndOrderFront();
    window.close();
    EXPECT_THAT(visibleAtClose, ElementsAre(true));
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(changes.back(), WindowChange::Visibility);
}

TEST_F(WindowTest, ClosesAlsoWhereItIsHidden) {
    window.close();
    EXPECT_THAT(visibleAtClose, ElementsAre(false));
    EXPECT_THAT(changes, IsEmpty());
}

TEST_F(WindowTest, ClosingWhileItClosesDoesNothingMore) {
    int told = 0;
    window.windowWillClose = [&] {
        ++told;
        window.close();
        EXPECT_TRUE(window.isVisible());
    };
    window.makeKeyAndOrderFront();
    window.close();
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(WindowTest, CanBeShownAndClosedAgain) {
    for (int round = 0; round < 3; ++round) {
        window.makeKeyAndOrderFront();
        window.close();
    }
    EXPECT_THAT(visibleAtClose, ElementsAre(true, true, true));
}

TEST_F(WindowTest, IsHiddenAfterClosingWhateverTheDelegateDid) {
    window.windowWillClose = [&] { window.makeKeyAndOrderFront(); };
    window.close();
    EXPECT_FALSE(window.isVisible());
}

TEST(Window, ClosesWithoutADelegateOrAView) {
    Window window;
    window.makeKeyAndOrderFront();
    window.setTitle("title");
    window.close();
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace toolkit
