#include "qt/surface/FaceArt.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPalette>

#include "qt/palettes.h"

namespace qt::surface {
namespace {

class TheFaceArt : public testing::Test {
public:
    TheFaceArt() {
        look.area = QRectF(0, 0, 60, 40);
        drawnCase.fill(Qt::green);
    }

protected:
    [[nodiscard]] qint64 ground() { return art.ground(look, place, 1).cacheKey(); }

    QPixmap drawnCase{400, 300};
    FaceArt art{tests::lightPalette(), [this]() -> const QPixmap& { return drawnCase; }};
    FaceLook look;
    QPoint place{20, 30};
};

TEST_F(TheFaceArt, IsDrawnOnceForALook) {
    const qint64 first = ground();
    EXPECT_EQ(ground(), first);
    look.assignment.number = 64;
    look.hasFocus = true;
    EXPECT_EQ(ground(), first) << "lettering and focus stand on it";
}

TEST_F(TheFaceArt, IsDrawnAnewForAnotherStateSizePlaceOrRatio) {
    const qint64 first = ground();
    for (bool FaceLook::*state :
         {&FaceLook::isChecked, &FaceLook::isEnabled, &FaceLook::isHovered, &FaceLook::isHeld}) {
        look.*state = !(look.*state);
        EXPECT_NE(ground(), first);
        look.*state = !(look.*state);
    }
    EXPECT_EQ(ground(), first);
    place = {20, 31};
    EXPECT_NE(ground(), first);
    place = {20, 30};
    look.area.setWidth(61);
    EXPECT_EQ(art.ground(look, place, 1).size(), QSize(61, 40));
    EXPECT_EQ(art.ground(look, place, 2).size(), QSize(122, 80));
    EXPECT_EQ(art.ground(look, place, 1.5).size(), QSize(92, 60)) << "no pixel is left out";
}

TEST_F(TheFaceArt, IsDrawnAnewInOtherColoursAndOnAnotherCase) {
    const QImage light = art.ground(look, place, 1).toImage();
    art.takeColours(tests::darkPalette());
    const QImage dark = art.ground(look, place, 1).toImage();
    EXPECT_GT(light.pixelColor(30, 20).lightness(), dark.pixelColor(30, 20).lightness() + 80);
    drawnCase.fill(Qt::red);
    art.forget();
    EXPECT_EQ(art.ground(look, place, 1).toImage().pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(TheFaceArt, ShowsTheCaseAroundTheBodyAndNothingBeneath) {
    QPainter(&drawnCase).fillRect(20, 30, 30, 40, Qt::blue);
    const QPixmap pixmap = art.ground(look, place, 1);
    EXPECT_FALSE(pixmap.hasAlphaChannel());
    EXPECT_EQ(pixmap.toImage().pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_EQ(pixmap.toImage().pixelColor(59, 39), QColor(Qt::green));
    EXPECT_NE(pixmap.toImage().pixelColor(30, 20), QColor(Qt::green));
}

TEST_F(TheFaceArt, TakesNoMoreBytesThanTheCase) {
    const qsizetype bytesOfCase = qsizetype{400} * 300 * 4;
    for (int x = 0; x < 100; ++x) {
        place.setX(x);
        (void)ground();
        EXPECT_LE(art.bytesOfGrounds(), bytesOfCase);
    }
    EXPECT_GT(art.bytesOfGrounds(), bytesOfCase / 2);
}

}  // namespace
}  // namespace qt::surface
