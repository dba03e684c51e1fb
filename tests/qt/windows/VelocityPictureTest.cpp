#include "qt/windows/VelocityPicture.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QImage>

namespace qt::windows {
namespace {

struct Fixture {
    Fixture() {
        curve.addItems(
            {QStringLiteral("Curve0"), QStringLiteral("Curve1"), QStringLiteral("Const")});
        constant.addItems({QStringLiteral("20"), QStringLiteral("84"), QStringLiteral("127")});
        picture.resize(picture.sizeHint());
    }
    QImage image() { return picture.grab().toImage(); }
    /// Rows, counted from above, in which the line is drawn.
    int lineFromAbove() {
        const QImage shown = image();
        const QColor line = picture.palette().color(QPalette::Highlight);
        for (int y = 0; y < shown.height(); ++y) {
            if (shown.pixelColor(shown.width() / 2, y) == line) {
                return y;
            }
        }
        return -1;
    }

    QComboBox curve;
    QComboBox constant;
    VelocityPicture picture{curve, constant, 2};
};

TEST(VelocityPicture, NamesACurveAndInventsNoShapeForIt) {
    Fixture shown;
    shown.curve.setCurrentIndex(1);
    EXPECT_EQ(shown.picture.accessibleName(), QStringLiteral("Curve1, built into the controller"));
    EXPECT_EQ(shown.lineFromAbove(), -1);
}

TEST(VelocityPicture, DrawsAConstantVelocityAsALevelLine) {
    Fixture shown;
    shown.curve.setCurrentIndex(2);
    shown.constant.setCurrentIndex(0);
    const int soft = shown.lineFromAbove();
    EXPECT_EQ(shown.picture.accessibleName(), QStringLiteral("Velocity 20 for every hit"));
    shown.constant.setCurrentIndex(2);
    const int hard = shown.lineFromAbove();
    EXPECT_EQ(shown.picture.accessibleName(), QStringLiteral("Velocity 127 for every hit"));
    EXPECT_GT(hard, 0);
    EXPECT_GT(soft, hard);
}

TEST(VelocityPicture, SaysSoWhereTheByteIsNoCurve) {
    Fixture shown;
    shown.curve.setCurrentIndex(-1);
    EXPECT_EQ(shown.picture.accessibleName(), QStringLiteral("No known velocity curve"));
    EXPECT_FALSE(shown.image().isNull());
}

}  // namespace
}  // namespace qt::windows
