#include "qt/widgets/ProgressView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

namespace qt::widgets {
namespace {

double shownBy(const ProgressView& view) {
    return static_cast<double>(view.value()) / view.maximum();
}

TEST(ProgressView, ShowsHowMuchOfTheRangeIsDone) {
    toolkit::ProgressIndicator model;
    model.setMaxValue(79);
    const ProgressView view(model);
    EXPECT_EQ(shownBy(view), 0);
    model.setDoubleValue(79);
    EXPECT_EQ(shownBy(view), 1);
    model.setDoubleValue(39.5);
    EXPECT_EQ(shownBy(view), 0.5);
    model.setMinValue(39.5);
    EXPECT_EQ(shownBy(view), 0);
}

TEST(ProgressView, ShowsAValueOutsideTheRangeAsNothingDone) {
    toolkit::ProgressIndicator model;
    const ProgressView view(model);
    for (const double value : {40448.0, -1.0, 1e300}) {
        model.setDoubleValue(value);
        EXPECT_EQ(shownBy(view), 0) << value;
    }
    model.setMaxValue(0);
    model.setDoubleValue(0);
    EXPECT_EQ(shownBy(view), 0);
}

TEST(ProgressView, IsHiddenWithItsModel) {
    toolkit::ProgressIndicator model;
    QWidget window;
    QVBoxLayout layout(&window);
    auto* view = new ProgressView(model);
    layout.addWidget(view);
    window.show();
    EXPECT_FALSE(view->isVisible());
    model.setHidden(false);
    EXPECT_TRUE(view->isVisible());
}

TEST(ProgressView, IsNoWindowOfItsOwn) {
    toolkit::ProgressIndicator model;
    model.setHidden(false);
    const ProgressView view(model);
    EXPECT_FALSE(view.isVisible());
}

class Canvas final : public QWidget {
public:
    int painted = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++painted; }
};

TEST(ProgressView, IsDrawnAtOnceWithWhatElseWaitsToBePainted) {
    toolkit::ProgressIndicator model;
    model.setHidden(false);
    QWidget window;
    QVBoxLayout layout(&window);
    auto* beside = new Canvas;
    layout.addWidget(new ProgressView(model));
    layout.addWidget(beside);
    beside->setMinimumSize(50, 50);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QApplication::processEvents();
    const int before = beside->painted;
    model.incrementBy(1);
    model.display();
    EXPECT_EQ(beside->painted, before) << "which has not changed";
    beside->update();
    model.incrementBy(1);
    model.display();
    EXPECT_EQ(beside->painted, before + 1) << "without a turn of the event loop";
}

TEST(ProgressView, LeavesAModelThatOutlivesItAndOutlivesIt) {
    auto model = std::make_unique<toolkit::ProgressIndicator>();
    auto view = std::make_unique<ProgressView>(*model);
    view.reset();
    EXPECT_FALSE(model->onChange);
    EXPECT_FALSE(model->onDisplay);
    view = std::make_unique<ProgressView>(*model);
    model.reset();
    view.reset();
}

}  // namespace
}  // namespace qt::widgets
