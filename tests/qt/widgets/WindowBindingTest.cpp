#include "qt/widgets/WindowBinding.h"

#include <gtest/gtest.h>

#include <QTest>
#include <memory>

namespace qt::widgets {
namespace {

using toolkit::Window;

TEST(WindowBinding, ShowsTheTitle) {
    Window model;
    model.setTitle("Tormelk Wyro");
    QWidget widget;
    const WindowBinding binding(widget, model);
    EXPECT_EQ(widget.windowTitle(), QStringLiteral("Tormelk Wyro"));
    model.setTitle("Tormelk  - usrdefmoddatNull");
    EXPECT_EQ(widget.windowTitle(), QStringLiteral("Tormelk  - usrdefmoddatNull"));
}

TEST(WindowBinding, ShowsAndHidesTheWidgetWithItsWindow) {
    Window model;
    QWidget widget;
    const WindowBinding binding(widget, model);
    EXPECT_FALSE(widget.isVisible());
    model.makeKeyAndOrderFront();
    EXPECT_TRUE(widget.isVisible());
    model.orderOut();
    EXPECT_FALSE(widget.isVisible());
}

TEST(WindowBinding, BringsAWindowThatIsShownAlreadyToTheFront) {
    Window first;
    Window second;
    QWidget firstWidget;
    QWidget secondWidget;
    const WindowBinding firstBinding(firstWidget, first);
    const WindowBinding secondBinding(secondWidget, second);
    first.makeKeyAndOrderFront();
    second.makeKeyAndOrderFront();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&secondWidget));
    first.makeKeyAndOrderFront();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&firstWidget));
}

TEST(WindowBinding, ClosesTheWindowWhenItsWidgetIsClosed) {
    Window model;
    QWidget widget;
    const WindowBinding binding(widget, model);
    int closed = 0;
    model.windowWillClose = [&] {
        ++closed;
        EXPECT_TRUE(widget.isVisible()) << "it is about to close";
    };
    model.makeKeyAndOrderFront();
    widget.close();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(model.isVisible());
    EXPECT_FALSE(widget.isVisible());
}

TEST(WindowBinding, ShowsAClosedWindowAgain) {
    Window model;
    QWidget widget;
    const WindowBinding binding(widget, model);
    model.makeKeyAndOrderFront();
    widget.close();
    model.makeKeyAndOrderFront();
    EXPECT_TRUE(widget.isVisible());
}

TEST(WindowBinding, LeavesAModelThatOutlivesItAndOutlivesItsModel) {
    auto model = std::make_unique<Window>();
    auto widget = std::make_unique<QWidget>();
    auto binding = std::make_unique<WindowBinding>(*widget, *model);
    binding.reset();
    EXPECT_FALSE(model->onChange);
    binding = std::make_unique<WindowBinding>(*widget, *model);
    model->makeKeyAndOrderFront();
    model.reset();
    EXPECT_EQ(binding->model(), nullptr);
    widget->close();
    EXPECT_FALSE(widget->isVisible());
}

}  // namespace
}  // namespace qt::widgets
