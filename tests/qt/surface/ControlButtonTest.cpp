#include "qt/surface/ControlButton.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "qt/palettes.h"
#include "qt/surface/contrast.h"

namespace qt::surface {
namespace {

using Shape = ControlButton::Shape;

constexpr std::array shapes = {Shape::Key, Shape::Lamp};

QImage pictureOf(ControlButton& button) {
    button.resize(button.sizeHint());
    button.ensurePolished();
    return button.grab().toImage();
}

/// The share of the pixels that differ.
double difference(const QImage& a, const QImage& b) {
    int differing = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            differing += a.pixel(x, y) == b.pixel(x, y) ? 0 : 1;
        }
    }
    return static_cast<double>(differing) / (a.width() * a.height());
}

class InEachTheme : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        QApplication::setPalette(GetParam() ? tests::darkPalette() : tests::lightPalette());
    }
    void TearDown() override { QApplication::setPalette(tests::lightPalette()); }
};

INSTANTIATE_TEST_SUITE_P(ControlButton, InEachTheme, testing::Bool(),
                         [](const auto& theme) { return theme.param ? "Dark" : "Light"; });

TEST_P(InEachTheme, IsPlainlyLitOrNot) {
    for (const Shape shape : shapes) {
        toolkit::Button model(toolkit::Button::Click::Lights);
        ControlButton button(model, shape, QStringLiteral("Solo"));
        const QImage dark = pictureOf(button);
        model.setState(1);
        const QImage lit = pictureOf(button);
        EXPECT_GT(difference(dark, lit), shape == Shape::Lamp ? 0.1 : 0.4)
            << static_cast<int>(shape);
    }
}

TEST_P(InEachTheme, KeepsItsFillApartFromTheWindowWhenLit) {
    toolkit::Button model(toolkit::Button::Click::Lights);
    ControlButton button(model, Shape::Key, {});
    model.setState(1);
    const QImage lit = pictureOf(button);
    const QColor fill = lit.pixelColor(lit.width() / 2, lit.height() / 2);
    EXPECT_GT(contrast(fill, button.palette().color(QPalette::Window)), 1.9);
    EXPECT_GT(contrast(fill, button.palette().color(QPalette::HighlightedText)), 4.5);
}

TEST_P(InEachTheme, OutlinesWhatIsNotLit) {
    toolkit::Button model(toolkit::Button::Click::Lights);
    ControlButton button(model, Shape::Key, {});
    const QImage picture = pictureOf(button);
    double most = 1;
    for (int y = 0; y < 6; ++y) {
        most = std::max(most, contrast(picture.pixelColor(picture.width() / 2, y),
                                       button.palette().color(QPalette::Window)));
    }
    EXPECT_GT(most, 2.5);
}

TEST(ControlButton, ShowsThatItHasTheFocus) {
    toolkit::Button model(toolkit::Button::Click::Lights);
    ControlButton button(model, Shape::Key, QStringLiteral("Solo"));
    button.clearFocus();
    const QImage without = pictureOf(button);
    button.show();
    button.activateWindow();
    button.setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(button.hasFocus());
    EXPECT_GT(difference(without, pictureOf(button)), 0.005);
}

TEST(ControlButton, HasSpaceForItsCaptionInBold) {
    for (const Shape shape : shapes) {
        toolkit::Button model;
        const ControlButton button(model, shape, QStringLiteral("Bank Right"));
        QFont bold = button.font();
        bold.setBold(true);
        EXPECT_GE(button.sizeHint().width(),
                  QFontMetrics(bold).horizontalAdvance(QStringLiteral("Bank Right")) + 10);
    }
}

TEST(ControlButton, GrowsWithTheFont) {
    toolkit::Button model;
    ControlButton button(model, Shape::Key, QStringLiteral("Solo"));
    const QSize before = button.sizeHint();
    QFont large = button.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    button.setFont(large);
    EXPECT_GT(button.sizeHint().width(), before.width());
    EXPECT_GT(button.sizeHint().height(), before.height());
}

}  // namespace
}  // namespace qt::surface
