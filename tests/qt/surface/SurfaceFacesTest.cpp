// What the faces of the drawn controller show, and when they are painted afresh.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "config/layout.h"
#include "qt/palettes.h"
#include "qt/surface/SurfaceEditor.h"

namespace tests {
namespace {

/// Which faces were painted, and whether the panel beneath them was.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(SurfaceEditor& editor) {
        editor.panel.installEventFilter(this);
        for (QPushButton* face : editor.panel.findChildren<QPushButton*>()) {
            face->installEventFilter(this);
        }
    }
    std::set<std::string> take() { return std::exchange(painted_, {}); }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted_.insert(object->objectName().toStdString());
        }
        return false;
    }

private:
    std::set<std::string> painted_;
};

class SurfaceFaces : public testing::Test {
public:
    SurfaceFaces() {
        editor.chooseMode(editor::userDefinedMode);
        (void)QTest::qWaitForWindowActive(&editor.panel);
        settle();
    }
    SurfaceFaces(const SurfaceFaces&) = delete;
    SurfaceFaces& operator=(const SurfaceFaces&) = delete;
    ~SurfaceFaces() override { QApplication::setPalette(lightPalette()); }

protected:
    static void settle() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
    [[nodiscard]] std::string shownBy(int tag) const {
        return editor.faceOf(tag).look().assignment.shortText();
    }
    [[nodiscard]] QImage pictureOf(qt::surface::FaceButton& face) const {
        return face.grab().toImage();
    }

    SurfaceEditor editor;
    qt::surface::Lettering lettering;
};

TEST_F(SurfaceFaces, ShowWhatTheirControlSends) {
    EXPECT_EQ(shownBy(48), "CC 16");
    EXPECT_EQ(shownBy(0), "C1");
    EXPECT_EQ(shownBy(56), "CC 56");
    EXPECT_EQ(shownBy(65), "F#5") << "the pad at the top left is control 70";
}

TEST_F(SurfaceFaces, FollowAChoiceInThePropertyBoxes) {
    editor.click(9);
    const QImage before = pictureOf(editor.faceOf(9));
    editor.window.combo_type.choose(editor::kindControlChange);
    editor.window.combo_cc.choose(64);
    editor.window.combo_chan.choose(2);
    editor.window.combo_trig.choose(1);
    EXPECT_EQ(shownBy(9), "CC 64");
    EXPECT_EQ(editor.faceOf(9).accessibleDescription(),
              QStringLiteral("Control change 64 Sustain, channel 3, toggle"));
    EXPECT_EQ(editor.faceOf(9).toolTip(),
              QStringLiteral("Strip 3, Solo\nControl change 64 Sustain, channel 3, toggle"));
    EXPECT_NE(pictureOf(editor.faceOf(9)), before);
}

TEST_F(SurfaceFaces, FollowTheModeLayer) {
    EXPECT_FALSE(editor.faceOf(9).look().assignment.toggles);
    editor.window.moLaCtrls[2].click();
    EXPECT_TRUE(editor.faceOf(9).look().assignment.toggles);
    EXPECT_EQ(shownBy(65), "F#5") << "pads follow the pad layer";
}

TEST_F(SurfaceFaces, FollowTheDawMode) {
    editor.chooseMode(editor::liveMode);
    EXPECT_EQ(shownBy(9), "SOLO CH.3");
    EXPECT_EQ(shownBy(40), "Monitor CH.1");
    EXPECT_EQ(editor.faceOf(9).toolTip(),
              QStringLiteral("Strip 3, Solo\nSOLO CH.3: note 10 A#-1, channel 1, momentary"));
    editor.chooseMode(editor::logicMode);
    EXPECT_EQ(shownBy(40), "V_Select CH.1");
    editor.chooseMode(editor::huiMode);
    EXPECT_EQ(shownBy(9), "A#-1");
}

TEST_F(SurfaceFaces, ShowTheSelectedControlAndThePadLayerFromTheStart) {
    const SurfaceEditor atStart;
    const auto isLit = [&atStart](const char* outlet) {
        return atStart.face(QString::fromLatin1(outlet)).look().isChecked;
    };
    EXPECT_EQ(atStart.state.selection.keyEvnt, 0);
    EXPECT_TRUE(isLit("encoder0"));
    EXPECT_FALSE(isLit("encoder1"));
    EXPECT_TRUE(isLit("paLa1")) << "the layer whose pads are shown";
    EXPECT_FALSE(isLit("paLa2"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&atStart.face(QStringLiteral("paLa1")))
                  ->state()
                  .checked,
              1U);
    editor.click(9);
    EXPECT_TRUE(editor.faceOf(9).look().isChecked);
    EXPECT_FALSE(editor.faceOf(0).look().isChecked);
    editor.chooseMode(editor::liveMode);
    EXPECT_FALSE(editor.faceOf(9).look().isChecked) << "nothing is selected now";
}

TEST_F(SurfaceFaces, ArePaintedAfreshOnlyWhereSomethingChanged) {
    editor.click(9);
    editor.click(10);
    settle();
    PaintWatch watch(editor);
    editor.panel.refresh();
    settle();
    EXPECT_EQ(watch.take(), std::set<std::string>());

    editor.window.combo_chan.choose(7);
    settle();
    EXPECT_EQ(watch.take(), std::set<std::string>{"encoder10"});

    editor.click(50);
    settle();
    EXPECT_EQ(watch.take(), (std::set<std::string>{"encoder10", "encoder50"}));
}

TEST_F(SurfaceFaces, OnTheScreenAreAsIfAllWerePaintedAfresh) {
    const auto onScreen = [this] {
        settle();
        return editor.panel.screen()
            ->grabWindow(editor.panel.winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    };
    const auto afresh = [this] {
        settle();
        return editor.panel.grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    ASSERT_EQ(onScreen(), afresh());
    for (const int layer : {2, 1, 3, 0}) {
        const QImage before = onScreen();
        editor.window.moLaCtrls.at(static_cast<std::size_t>(layer)).click();
        EXPECT_NE(onScreen(), before);
        EXPECT_EQ(onScreen(), afresh()) << layer;
    }
    editor.click(49);
    editor.window.combo_type.choose(editor::kindProgramChange);
    editor.window.combo_cc.choose(127);
    EXPECT_EQ(onScreen(), afresh());
    for (const int mode : {editor::liveMode, editor::huiMode, editor::userDefinedMode}) {
        editor.chooseMode(mode);
        EXPECT_EQ(onScreen(), afresh()) << mode;
    }
    editor.panel.resize(1111, 777);
    EXPECT_EQ(onScreen(), afresh());
    QApplication::setPalette(darkPalette());
    EXPECT_EQ(onScreen(), afresh());
}

TEST_F(SurfaceFaces, AreAllPaintedAtOnceWithoutTheCaseBeneath) {
    PaintWatch watch(editor);
    editor.window.moLaCtrls[2].click();
    settle();
    std::set<std::string> painted = watch.take();
    EXPECT_GE(painted.size(), 40U);
    EXPECT_FALSE(painted.contains("surface"));

    editor.panel.setStyleSheet(QStringLiteral("QToolTip { color: black; }"));  // another style
    settle();
    (void)watch.take();
    editor.window.moLaCtrls[0].click();
    settle();
    painted = watch.take();
    EXPECT_GE(painted.size(), 40U);
    EXPECT_FALSE(painted.contains("surface"));
}

TEST_F(SurfaceFaces, KeepTheProportionsOfTheController) {
    for (const QSize size :
         {QSize(903, 489), QSize(1400, 600), QSize(1000, 1000), QSize(3200, 1900)}) {
        editor.panel.resize(size);
        const QRect knob = editor.faceOf(48).geometry();
        EXPECT_NEAR(knob.width(), knob.height(), 1);
        const QRect first = editor.faceOf(0).geometry();
        const QRect pad = editor.faceOf(73).geometry();
        const double across = pad.right() - first.left();
        const double down = pad.bottom() - knob.top();
        EXPECT_NEAR(across / down, 885.0 / 480, 0.02);
        EXPECT_TRUE(editor.panel.rect().contains(pad));
        EXPECT_NEAR(editor.panel.width() - 960 * editor.faceOf(0).look().unit,
                    2 * (first.left() - 61 * editor.faceOf(0).look().unit), 4)
            << "it stands in the middle";
    }
}

TEST_F(SurfaceFaces, NeverOverlap) {
    for (const QSize size : {editor.panel.minimumSizeHint(), QSize(1111, 777)}) {
        editor.panel.resize(size);
        const QList<QPushButton*> faces = editor.panel.findChildren<QPushButton*>();
        EXPECT_EQ(faces.size(), 82);
        for (const QPushButton* face : faces) {
            for (const QPushButton* other : faces) {
                const QRect shared = face->geometry().intersected(other->geometry());
                EXPECT_TRUE(face == other || shared.width() <= 1 || shared.height() <= 1)
                    << face->objectName().toStdString() << other->objectName().toStdString();
            }
        }
    }
}

TEST_F(SurfaceFaces, FitASmallScreenBesideAnInspector) {
    EXPECT_LE(editor.panel.minimumSizeHint().width(), 1280 - 280 - 60);
    EXPECT_LE(editor.panel.minimumSizeHint().height(), 720 - 40 - 24 - 60 - 24 - 40);
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

/// The lightness of a picture alone: what is left of it without colour.
QImage greyOf(const QImage& picture) {
    return picture.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
}

TEST_F(SurfaceFaces, LookDifferentInEachState) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        settle();
        for (const int tag : {1, 48, 56, 65, 74}) {
            qt::surface::FaceLook plain =
                tag == 74 ? editor.face(QStringLiteral("moLa3")).look() : editor.faceOf(tag).look();
            plain.isChecked = plain.hasFocus = plain.isHovered = false;
            const auto paint = [&](const qt::surface::FaceLook& look) {
                QImage picture(look.area.size().toSize(), QImage::Format_RGB32);
                const qt::surface::SurfaceColours colours(palette);
                picture.fill(colours.plate);
                QPainter painter(&picture);
                qt::surface::paintFaceBody(painter, look, colours);
                qt::surface::paintFaceLetters(painter, look, colours, lettering);
                painter.end();
                return greyOf(picture);
            };
            std::vector<QImage> states = {paint(plain)};
            for (bool qt::surface::FaceLook::*state :
                 {&qt::surface::FaceLook::isChecked, &qt::surface::FaceLook::isHovered,
                  &qt::surface::FaceLook::isHeld, &qt::surface::FaceLook::hasFocus}) {
                qt::surface::FaceLook look = plain;
                look.*state = true;
                states.push_back(paint(look));
            }
            qt::surface::FaceLook disabled = plain;
            disabled.isEnabled = false;
            states.push_back(paint(disabled));
            disabled.isChecked = true;
            states.push_back(paint(disabled));
            for (std::size_t i = 0; i < states.size(); ++i) {
                for (std::size_t j = 0; j < i; ++j) {
                    EXPECT_GT(difference(states[i], states[j]), 0.02)
                        << tag << ' ' << i << ' ' << j;
                }
            }
        }
    }
}

TEST_F(SurfaceFaces, TellKindsAndTogglesApartWithoutColour) {
    std::vector<QImage> pictures;
    for (const auto kind : {config::MessageKind::Note, config::MessageKind::ControlChange,
                            config::MessageKind::ProgramChange, config::MessageKind::PitchBend,
                            config::MessageKind::Unknown}) {
        for (const bool toggles : {false, true}) {
            qt::surface::FaceLook look = editor.faceOf(5).look();
            look.assignment.kind = kind;
            look.assignment.toggles = toggles;
            const qt::surface::FaceLines lines = qt::surface::linesOf(look, lettering);
            EXPECT_EQ(!lines.toggleSign.isEmpty(), toggles);
            QImage picture(look.area.size().toSize(), QImage::Format_RGB32);
            QPainter painter(&picture);
            const qt::surface::SurfaceColours colours(lightPalette());
            qt::surface::paintFaceBody(painter, look, colours);
            qt::surface::paintFaceLetters(painter, look, colours, lettering);
            painter.end();
            pictures.push_back(
                picture.copy(lines.kindSign.toAlignedRect()).convertToFormat(QImage::Format_Mono));
        }
    }
    for (std::size_t i = 0; i < pictures.size(); i += 2) {
        for (std::size_t j = 0; j < i; j += 2) {
            EXPECT_NE(pictures[i], pictures[j]) << i << ' ' << j;
        }
    }
}

TEST_F(SurfaceFaces, TakeTheirColoursFromThePalette) {
    const QImage light = editor.panel.grab().toImage();
    QApplication::setPalette(darkPalette());
    settle();
    const QImage dark = editor.panel.grab().toImage();
    EXPECT_GT(difference(light, dark), 0.9);
    EXPECT_LT(dark.pixelColor(20, 480).lightness(), 80);
    EXPECT_GT(light.pixelColor(20, 480).lightness(), 180);
}

}  // namespace
}  // namespace tests
