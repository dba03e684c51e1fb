#include "qt/windows/StepRow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "qt/palettes.h"

namespace qt::windows {
namespace {

/// A point in the background, away from words and number.
QColor background(StepRow& row) {
    const QImage picture = row.grab().toImage();
    return picture.pixelColor(picture.width() / 2, 4);
}

TEST(StepRow, StandsOutWhileItIsTheNextOne) {
    for (const QPalette& palette : {tests::lightPalette(), tests::darkPalette()}) {
        StepRow row(3, {QStringLiteral("Title"), QStringLiteral("Do"), QStringLiteral("Expect")});
        row.setPalette(palette);
        row.resize(300, 90);
        const QColor before = background(row);
        EXPECT_FALSE(row.isNext());
        row.setNext(true);
        EXPECT_TRUE(row.isNext());
        EXPECT_NE(background(row), before);
        row.setNext(false);
        EXPECT_EQ(background(row), before);
    }
}

TEST(StepRow, HasItsNumberInABadge) {
    StepRow one(1, {QStringLiteral("Title"), {}, {}});
    StepRow two(2, {QStringLiteral("Title"), {}, {}});
    one.resize(300, 90);
    two.resize(300, 90);
    EXPECT_NE(one.grab().toImage(), two.grab().toImage());
}

}  // namespace
}  // namespace qt::windows
