#include "toolkit/WindowController.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace toolkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Controller final : public WindowController {
public:
    void windowWillClose() override { calls.emplace_back("windowWillClose"); }

    std::vector<std::string> calls;
    std::function<void()> whileAwaking;

protected:
    void awakeFromNib() override {
        calls.emplace_back("awakeFromNib");
        if (whileAwaking) {
            whileAwaking();
        }
    }
};

TEST(WindowController, LoadsNothingBeforeTheWindowIsAskedFor) {
    const Controller controller;
    EXPECT_THAT(controller.calls, IsEmpty());
}

TEST(WindowController, LoadsItsWindowOnce) {
    Controller controller;
    Window& first = controller.window();
    EXPECT_THAT(controller.calls, ElementsAre("awakeFromNib"));
    EXPECT_EQ(&controller.window(), &first);
    first.makeKeyAndOrderFront();
    first.close();
    controller.window().makeKeyAndOrderFront();
    EXPECT_THAT(controller.calls, ElementsAre("awakeFromNib", "windowWillClose"));
}

TEST(WindowController, MayAskForItsWindowWhileItAwakes) {
    Controller controller;
    controller.whileAwaking = [&] { controller.window().setTitle("Device"); };
    EXPECT_EQ(controller.window().title(), "Device");
    EXPECT_THAT(controller.calls, ElementsAre("awakeFromNib"));
}

TEST(WindowController, HearsThatItsWindowWillClose) {
    Controller controller;
    controller.window().close();
    controller.window().close();
    EXPECT_THAT(controller.calls,
                ElementsAre("awakeFromNib", "windowWillClose", "windowWillClose"));
}

TEST(WindowController, ItsWindowIsHiddenUntilItIsShown) {
    Controller controller;
    EXPECT_FALSE(controller.window().isVisible());
}

}  // namespace
}  // namespace toolkit
