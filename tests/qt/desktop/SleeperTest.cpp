#include "qt/desktop/Sleeper.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <thread>

namespace qt::desktop {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

Seconds timeOf(Sleeper& sleeper, Seconds asked) {
    const Clock::time_point start = Clock::now();
    sleeper.sleep(asked);
    return Clock::now() - start;
}

TEST(Sleeper, SleepsNeverShorterThanAsked) {
    Sleeper sleeper;
    for (int i = 0; i < 40; ++i) {
        const Seconds asked(0.002);
        EXPECT_GE(timeOf(sleeper, asked).count(), asked.count());
    }
}

TEST(Sleeper, SleepsLongTimesToTheEnd) {
    Sleeper sleeper;
    const Seconds taken = timeOf(sleeper, 0.23s);
    EXPECT_GE(taken.count(), 0.23);
    EXPECT_LT(taken.count(), 2);
}

TEST(Sleeper, DoesNotSleepForNoTimeOrLess) {
    Sleeper sleeper;
    EXPECT_LT(timeOf(sleeper, 0s).count(), 1);
    EXPECT_LT(timeOf(sleeper, Seconds(-1)).count(), 1);
}

TEST(Sleeper, LooksUpBeforeAndAfterEveryWait) {
    Sleeper sleeper;
    int looks = 0;
    sleeper.onSleep([&looks] { ++looks; });
    sleeper.sleep(0s);
    EXPECT_EQ(looks, 1);
    sleeper.sleep(0.002s);
    EXPECT_EQ(looks, 3);
    looks = 0;
    sleeper.sleep(0.35s);
    EXPECT_GE(looks, 5) << "a wait is a tenth of a second at most";
}

/// Counts what reaches it.
class PressCounter final : public QWidget {
public:
    int painted = 0;
    int clicked = 0;
    int typed = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++painted; }
    void mousePressEvent(QMouseEvent*) override { ++clicked; }
    void keyPressEvent(QKeyEvent*) override { ++typed; }
};

TEST(Sleeper, LetsTheWindowPaintDuringALongJobOfShortSleeps) {
    PressCounter canvas;
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    QApplication::processEvents();
    const int before = canvas.painted;
    Sleeper sleeper;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 200; ++i) {
        canvas.update();
        sleeper.sleep(2ms);
    }
    const auto tenths = (std::chrono::steady_clock::now() - start) / 100ms;
    EXPECT_GE(canvas.painted - before, 3);
    EXPECT_LE(canvas.painted - before, tenths) << "and does not spend its time with it";
}

TEST(Sleeper, DoesNotRunTheEventLoopDuringAShortJob) {
    bool fired = false;
    QTimer::singleShot(0, qApp, [&fired] { fired = true; });
    Sleeper sleeper;
    std::this_thread::sleep_for(120ms);  // the program was busy otherwise before
    for (int i = 0; i < 4; ++i) {
        sleeper.sleep(2ms);
    }
    EXPECT_FALSE(fired);
    QApplication::processEvents();
    EXPECT_TRUE(fired);
}

/// Posts a click and a key as a display does: to be processed with the event loop's next turn.
void postInput(QWidget& widget, std::chrono::milliseconds after) {
    QTimer::singleShot(after, &widget, [&widget] {
        QTest::mouseClick(&widget, Qt::LeftButton);
        QTest::keyClick(&widget, Qt::Key_A);
        widget.close();
    });
}

TEST(Sleeper, ThrowsAwayWhatAPersonDoesDuringALongJob) {
    PressCounter canvas;
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    Sleeper sleeper;
    postInput(canvas, 20ms);
    sleeper.sleep(160ms);
    sleeper.endJob();
    QApplication::processEvents();
    EXPECT_EQ(canvas.clicked, 0);
    EXPECT_EQ(canvas.typed, 0);
    EXPECT_TRUE(canvas.isVisible());
    postInput(canvas, 0ms);
    QTest::qWait(20);
    EXPECT_EQ(canvas.clicked, 1) << "afterwards it is taken again";
    EXPECT_EQ(canvas.typed, 1);
    EXPECT_FALSE(canvas.isVisible());
}

TEST(Sleeper, ThrowsAwayWhatCameSinceTheLastPaintingWhenTheJobEnds) {
    PressCounter canvas;
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    Sleeper sleeper;
    sleeper.sleep(120ms);
    postInput(canvas, 0ms);
    sleeper.endJob();
    QApplication::processEvents();
    EXPECT_EQ(canvas.clicked, 0);
    EXPECT_TRUE(canvas.isVisible());
}

TEST(Sleeper, EndsAShortJobWithoutATurnOfTheEventLoop) {
    bool fired = false;
    Sleeper sleeper;
    sleeper.sleep(2ms);
    QTimer::singleShot(0, qApp, [&fired] { fired = true; });
    sleeper.endJob();
    EXPECT_FALSE(fired);
    QApplication::processEvents();
}

TEST(Sleeper, StartsAnewForEachJob) {
    Sleeper sleeper;
    sleeper.sleep(2ms);
    QTest::qWait(150);
    bool fired = false;
    QTimer::singleShot(0, qApp, [&fired] { fired = true; });
    sleeper.sleep(2ms);
    EXPECT_FALSE(fired);
    QApplication::processEvents();
}

}  // namespace
}  // namespace qt::desktop
