#include "qt/surface/buttonPainting.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace qt::surface {
namespace {

TEST(Outline, RunsInsideWithCornersThatFit) {
    const Outline inner = Outline{{0, 0, 20, 10}, 4}.inside(1.5);
    EXPECT_EQ(inner.area, QRectF(1.5, 1.5, 17, 7));
    EXPECT_EQ(inner.radius, 2.5);
}

TEST(Outline, RunsAroundAtANegativeDistance) {
    const Outline outer = Outline{{0, 0, 20, 10}, 4}.inside(-2);
    EXPECT_EQ(outer.area, QRectF(-2, -2, 24, 14));
    EXPECT_EQ(outer.radius, 6);
}

TEST(Outline, NeverHasSharpCorners) {
    EXPECT_EQ((Outline{{0, 0, 20, 10}, 2}.inside(4).radius), 1);
}

TEST(ButtonState, IsTheButtons) {
    QPushButton button;
    button.setCheckable(true);
    EXPECT_TRUE(stateOf(button).isEnabled);
    EXPECT_FALSE(stateOf(button).isChecked);
    EXPECT_FALSE(stateOf(button).isHeld);
    button.setChecked(true);
    button.setDown(true);
    EXPECT_TRUE(stateOf(button).isChecked);
    EXPECT_TRUE(stateOf(button).isHeld);
    button.setEnabled(false);
    EXPECT_FALSE(stateOf(button).isEnabled);
}

TEST(ButtonState, IsHoveredOnlyWhereSomethingCanBeClicked) {
    QPushButton button;
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_TRUE(stateOf(button).isHovered);
    button.setEnabled(false);
    button.setAttribute(Qt::WA_UnderMouse);
    EXPECT_FALSE(stateOf(button).isHovered);
}

}  // namespace
}  // namespace qt::surface
