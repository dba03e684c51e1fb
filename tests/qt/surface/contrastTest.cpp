#include "qt/surface/contrast.h"

#include <gtest/gtest.h>

namespace qt::surface {
namespace {

TEST(Contrast, GoesFromOneToTwentyOne) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.01);
    EXPECT_DOUBLE_EQ(contrast(Qt::red, Qt::red), 1);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(Contrast, MixesTwoColoursByAShare) {
    EXPECT_EQ(between(Qt::black, Qt::white, 0), QColor(Qt::black));
    EXPECT_EQ(between(Qt::black, Qt::white, 1), QColor(Qt::white));
    EXPECT_EQ(between(QColor(10, 20, 30), QColor(20, 40, 60), 0.5), QColor(15, 30, 45));
}

TEST(Contrast, LeavesAColourAloneThatCanBeRead) {
    EXPECT_EQ(shadeFor(QColor(0, 0, 120), Qt::white, 4.5), QColor(0, 0, 120));
}

TEST(Contrast, ShadesAColourUntilItCanBeRead) {
    for (const QColor& background : {QColor(Qt::white), QColor(Qt::black), QColor(0x30, 0x8c, 0xc6),
                                     QColor(0x77, 0x77, 0x77), QColor(0x2f, 0x6f, 0xb5)}) {
        for (const QColor& wanted :
             {QColor(Qt::yellow), QColor(Qt::gray), QColor(0x30, 0x8c, 0xc6), background}) {
            const QColor shade = shadeFor(wanted, background, 4.5);
            EXPECT_GE(contrast(shade, background), 4.5)
                << wanted.name().toStdString() << " on " << background.name().toStdString();
        }
    }
}

TEST(Contrast, GivesTheMostThereIsWhereTheAimCannotBeReached) {
    const QColor grey(0x77, 0x77, 0x77);
    EXPECT_EQ(shadeFor(Qt::red, grey, 20), QColor(Qt::black));
}

}  // namespace
}  // namespace qt::surface
