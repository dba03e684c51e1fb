#include "toolkit/ProgressIndicator.h"

#include <gtest/gtest.h>

namespace toolkit {
namespace {

TEST(ProgressIndicator, IsHiddenAndEmptyUntilTheProgramShowsIt) {
    const ProgressIndicator bar;
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(bar.doubleValue(), 0);
    EXPECT_EQ(bar.minValue(), 0);
    EXPECT_EQ(bar.maxValue(), 100);
}

TEST(ProgressIndicator, TellsItsViewOfEachChangeOnce) {
    ProgressIndicator bar;
    int told = 0;
    bar.onChange = [&told] { ++told; };
    bar.setDoubleValue(3);
    bar.incrementBy(2);
    EXPECT_EQ(bar.doubleValue(), 5);
    EXPECT_EQ(told, 2);
    bar.setDoubleValue(5);
    EXPECT_EQ(told, 2);
    bar.setMinValue(1);
    bar.setMaxValue(79);
    bar.setHidden(false);
    EXPECT_EQ(told, 5);
    EXPECT_EQ(bar.minValue(), 1);
    EXPECT_EQ(bar.maxValue(), 79);
    EXPECT_FALSE(bar.isHidden());
}

TEST(ProgressIndicator, HasItsViewDrawOnlyWhenToldTo) {
    ProgressIndicator bar;
    bar.display();
    int drawn = 0;
    bar.onDisplay = [&drawn] { ++drawn; };
    bar.incrementBy(1);
    EXPECT_EQ(drawn, 0);
    bar.display();
    bar.display();
    EXPECT_EQ(drawn, 2);
}

}  // namespace
}  // namespace toolkit
