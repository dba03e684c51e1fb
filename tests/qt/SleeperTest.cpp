#include "qt/Sleeper.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <thread>

namespace qt {
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
    EXPECT_LT(taken.count(), 0.33);
}

TEST(Sleeper, DoesNotSleepForNoTimeOrLess) {
    Sleeper sleeper;
    EXPECT_LT(timeOf(sleeper, 0s).count(), 0.01);
    EXPECT_LT(timeOf(sleeper, Seconds(-1)).count(), 0.01);
}

/// Counts what reaches it.
class Canvas final : public QWidget {
public:
    int painted = 0;
    int clicked = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++painted; }
    void mousePressEvent(QMouseEvent*) override { ++clicked; }
};

TEST(Sleeper, LetsTheWindowPaintDuringALongJobOfShortSleeps) {
    Canvas canvas;
    canvas.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&canvas));
    QApplication::processEvents();
    const int before = canvas.painted;
    Sleeper sleeper;
    for (int i = 0; i < 100; ++i) {
        canvas.update();
        sleeper.sleep(2ms);
    }
    EXPECT_GE(canvas.painted - before, 2);
    EXPECT_LE(canvas.painted - before, 8) << "and does not spend its time with it";
}

TEST(Sleeper, DoesNotRunTheEventLoopDuringAShortJob) {
    bool fired = false;
    QTimer::singleShot(0, qApp, [&fired] { fired = true; });
    Sleeper sleeper;
    std::this_thread::sleep_for(60ms);  // the program was busy otherwise before
    for (int i = 0; i < 4; ++i) {
        sleeper.sleep(2ms);
    }
    EXPECT_FALSE(fired);
    QApplication::processEvents();
    EXPECT_TRUE(fired);
}

TEST(Sleeper, StartsAnewForEachJob) {
    Sleeper sleeper;
    sleeper.sleep(2ms);
    QTest::qWait(120);
    bool fired = false;
    QTimer::singleShot(0, qApp, [&fired] { fired = true; });
    sleeper.sleep(2ms);
    EXPECT_FALSE(fired);
    QApplication::processEvents();
}

}  // namespace
}  // namespace qt
