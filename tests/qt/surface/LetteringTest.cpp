#include "qt/surface/Lettering.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QString>

namespace qt::surface {
namespace {

const QString sustain = QStringLiteral("CC 64");

TEST(Lettering, LaysATextOutOnce) {
    Lettering lettering;
    const LaidText first = lettering.fitted(sustain, QFont(), 12, 80);
    const LaidText again = lettering.fitted(sustain, QFont(), 12, 80);
    EXPECT_EQ(lettering.kept(), 1);
    EXPECT_TRUE(first.glyphs.isSharedWith(again.glyphs));
    EXPECT_FALSE(first.glyphs.isEmpty());
}

TEST(Lettering, LaysItOutAnewInAnotherFontSizeOrWidth) {
    Lettering lettering;
    QFont bold;
    bold.setBold(true);
    QFont spaced;
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, 3);
    const LaidText plain = lettering.fitted(sustain, QFont(), 12, 80);
    EXPECT_GT(lettering.fitted(sustain, bold, 12, 80).width, plain.width);
    EXPECT_GT(lettering.fitted(sustain, spaced, 12, 80).width, plain.width);
    EXPECT_GT(lettering.fitted(sustain, QFont(), 14, 80).width, plain.width);
    EXPECT_TRUE(lettering.fitted(sustain, QFont(), 12, 15).isCut);
    EXPECT_NE(lettering.fitted(QStringLiteral("CC 65"), QFont(), 12, 80).text, plain.text);
    EXPECT_EQ(lettering.kept(), 6);
}

TEST(Lettering, FitsATextAsOneThatIsNotKept) {
    Lettering lettering;
    for (const qreal widest : {15.0, 30.0, 80.0}) {
        const FittedText plain = fitText(sustain, QFont(), 14, widest);
        const LaidText laid = lettering.fitted(sustain, QFont(), 14, widest);
        EXPECT_EQ(laid.text, plain.text);
        EXPECT_EQ(laid.font, plain.font);
        EXPECT_EQ(laid.width, plain.width);
        EXPECT_EQ(laid.height, plain.height);
        EXPECT_EQ(laid.ascent, plain.ascent);
        EXPECT_EQ(laid.isCut, plain.isCut);
    }
}

TEST(Lettering, LooksOnThePictureLikeATextThatIsPaintedDirectly) {
    Lettering lettering;
    const LaidText laid = lettering.fitted(sustain, QFont(), 12, 80);
    QImage direct(90, 30, QImage::Format_RGB32);
    direct.fill(Qt::white);
    QImage kept = direct;
    QPainter directly(&direct);
    directly.setFont(laid.font);
    directly.drawText(QPointF(4, 20), laid.text);
    directly.end();
    QPainter painter(&kept);
    for (const QGlyphRun& glyphs : laid.glyphs) {
        painter.drawGlyphRun(QPointF(4, 20), glyphs);
    }
    painter.end();
    EXPECT_EQ(kept, direct);
}

TEST(Lettering, KeepsNoMoreThanItsBound) {
    Lettering lettering;
    for (int i = 0; i < Lettering::mostKept + 50; ++i) {
        (void)lettering.fitted(QString::number(i), QFont(), 12, 80);
    }
    EXPECT_EQ(lettering.kept(), Lettering::mostKept);
    lettering.forget();
    EXPECT_EQ(lettering.kept(), 0);
}

}  // namespace
}  // namespace qt::surface
