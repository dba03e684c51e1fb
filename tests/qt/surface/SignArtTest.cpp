#include "qt/surface/SignArt.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <functional>

#include "qt/surface/signs.h"

namespace qt::surface {
namespace {

constexpr QRectF someSquare(7.3, 5.6, 8.5, 8.5);
const QColor someColour(30, 90, 160);

QImage painted(qreal ratio, const std::function<void(QPainter&)>& paint) {
    QImage picture(QSize(30, 24) * ratio, QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    return picture;
}

/// Of a channel of any pixel.
int greatestDifference(const QImage& a, const QImage& b) {
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y);
            const QRgb other = b.pixel(x, y);
            greatest = std::max({greatest, std::abs(qRed(one) - qRed(other)),
                                 std::abs(qGreen(one) - qGreen(other)),
                                 std::abs(qBlue(one) - qBlue(other))});
        }
    }
    return greatest;
}

TEST(SignArt, LooksLikeASignThatIsPaintedDirectly) {
    constexpr int unseen = 8;  // of 255
    SignArt art;
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        for (const auto kind : {config::MessageKind::Note, config::MessageKind::ControlChange,
                                config::MessageKind::ProgramChange, config::MessageKind::PitchBend,
                                config::MessageKind::Unknown}) {
            const auto kept = [&](QPainter& painter) {
                art.drawKind(painter, someSquare, kind, someColour);
            };
            const QImage direct = painted(ratio, [&](QPainter& painter) {
                drawKindSign(painter, someSquare, kind, someColour);
            });
            EXPECT_LE(greatestDifference(painted(ratio, kept), direct), unseen);
            EXPECT_LE(greatestDifference(painted(ratio, kept), direct), unseen) << "once more";
        }
        const QRectF area(someSquare.topLeft(), QSizeF(10.6, 6.4));
        const QImage kept = painted(ratio, [&](QPainter& painter) {
            art.drawToggle(painter, area, someColour, Qt::white);
        });
        const QImage direct = painted(ratio, [&](QPainter& painter) {
            drawToggleSign(painter, area, someColour, Qt::white);
        });
        EXPECT_LE(greatestDifference(kept, direct), unseen);
    }
}

TEST(SignArt, FillsASignOnceForAllWholePixels) {
    SignArt art;
    const auto draw = [&art](const QRectF& square, const QColor& colour) {
        painted(1, [&](QPainter& painter) {
            art.drawKind(painter, square, config::MessageKind::Note, colour);
        });
        return art.kept();
    };
    EXPECT_EQ(draw(someSquare, someColour), 1);
    EXPECT_EQ(draw(someSquare, someColour), 1);
    EXPECT_EQ(draw(someSquare.translated(3, -2), someColour), 1);
    EXPECT_EQ(draw(someSquare.translated(0.4, 0), someColour), 2);
    EXPECT_EQ(draw(someSquare, Qt::red), 3);
    EXPECT_EQ(draw(someSquare.adjusted(0, 0, 2, 2), someColour), 4);
    art.forget();
    EXPECT_EQ(art.kept(), 0);
}

TEST(SignArt, KeepsNoMoreThanItsBound) {
    SignArt art;
    painted(1, [&art](QPainter& painter) {
        for (int i = 0; i < SignArt::mostKept + 20; ++i) {
            art.drawKind(painter, someSquare, config::MessageKind::Note,
                         QColor::fromRgb(static_cast<QRgb>(i)));
        }
    });
    EXPECT_EQ(art.kept(), SignArt::mostKept);
}

}  // namespace
}  // namespace qt::surface
