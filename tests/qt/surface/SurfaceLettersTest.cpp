// Every text on the drawn controller can be read.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

#include "config/layout.h"
#include "qt/letterContrast.h"
#include "qt/palettes.h"
#include "qt/surface/SurfaceEditor.h"

namespace tests {
namespace {

class SurfaceLetters : public testing::Test {
public:
    qt::surface::Lettering lettering;

    SurfaceLetters() = default;
    SurfaceLetters(const SurfaceLetters&) = delete;
    SurfaceLetters& operator=(const SurfaceLetters&) = delete;
    ~SurfaceLetters() override { QApplication::setPalette(lightPalette()); }
};

TEST_F(SurfaceLetters, StandOutFromWhatIsBehindThem) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        QApplication::setPalette(palette);
        int looks = 0;
        forEverySurface([&looks](SurfaceEditor& editor, const QString& name) {
            ++looks;
            EXPECT_GT(textCount(editor.panel), 180);
            const QStringList unreadable =
                unreadableTexts(editor.panel.grab().toImage(), editor.panel);
            EXPECT_TRUE(unreadable.isEmpty())
                << name.toStdString() << ": " << unreadable.join(QLatin1Char('\n')).toStdString();
        });
        EXPECT_GE(looks, 8);
    }
}

TEST_F(SurfaceLetters, AreFoundUnreadableWhereTheyAre) {
    forEverySurface([](SurfaceEditor& editor, const QString&) {
        QImage flat(editor.panel.size(), QImage::Format_RGB32);
        flat.fill(Qt::gray);
        EXPECT_EQ(unreadableTexts(flat, editor.panel).size(), textCount(editor.panel));
    });
}

/// Calls `look` for every face in every layer and mode.
template <typename Look>
void forEveryFace(SurfaceEditor& editor, Look look) {
    for (int mode = 0; mode <= editor::huiMode; ++mode) {
        editor.chooseMode(mode);
        for (int layer = 0; layer < config::layerCount; ++layer) {
            editor.state.layers.layrData = layer;
            editor.state.layers.m_paLa = layer;
            editor.panel.refresh();
            for (int tag = 0; tag < config::buttonCount; ++tag) {
                look(editor.faceOf(tag));
            }
        }
        editor.state.layers.layrData = 0;
        editor.state.layers.m_paLa = 0;
    }
}

TEST_F(SurfaceLetters, AreNeverCutInAFactoryAssignment) {
    SurfaceEditor editor;
    for (const QSize size : {editor.panel.minimumSizeHint(), editor.panel.sizeHint()}) {
        editor.panel.resize(size);
        forEveryFace(editor, [this](const qt::surface::FaceButton& face) {
            const qt::surface::FaceLines lines = qt::surface::linesOf(face.look(), lettering);
            EXPECT_FALSE(lines.first.isCut || lines.second.isCut) << face.toolTip().toStdString();
        });
    }
}

TEST_F(SurfaceLetters, AreNeverCutInAnyUserDefinedAssignment) {
    SurfaceEditor editor;
    editor.panel.resize(editor.panel.minimumSizeHint());
    qt::surface::FaceLook look = editor.faceOf(5).look();
    look.assignment.canToggle = true;
    look.assignment.toggles = true;
    for (const auto kind : {config::MessageKind::Note, config::MessageKind::ControlChange,
                            config::MessageKind::ProgramChange, config::MessageKind::PitchBend}) {
        for (int value = 0; value < 128; ++value) {
            look.assignment.kind = kind;
            look.assignment.number = value;
            look.assignment.channel = value % 16;
            look.assignment.hostFunction = {};
            const qt::surface::FaceLines lines = qt::surface::linesOf(look, lettering);
            EXPECT_FALSE(lines.first.isCut || lines.second.isCut) << look.assignment.fullText();
            EXPECT_GE(lines.kindSign.left(), look.area.left());
            EXPECT_LE(lines.toggleSign.right(), look.area.right());
            const QRectF painted = qt::surface::letteredAreaOf(look, lettering);
            EXPECT_TRUE(painted.adjusted(-1, -1, 1, 1).contains(lines.kindSign));
            EXPECT_TRUE(painted.adjusted(-1, -1, 1, 1).contains(lines.toggleSign));
        }
    }
}

TEST_F(SurfaceLetters, StayWithinTheirFaceAndAreNeverTiny) {
    SurfaceEditor editor;
    editor.panel.resize(editor.panel.minimumSizeHint());
    forEveryFace(editor, [this](const qt::surface::FaceButton& face) {
        const qt::surface::FaceLook look = face.look();
        const qt::surface::FaceLines lines = qt::surface::linesOf(look, lettering);
        for (const auto& [fitted, area] :
             {std::pair(lines.first, lines.firstArea), std::pair(lines.second, lines.secondArea)}) {
            EXPECT_LE(fitted.width, look.area.width());
            EXPECT_GE(area.top(), look.area.top());
            EXPECT_LE(area.bottom(), look.area.bottom());
            EXPECT_GE(fitted.font.pixelSize(), 9);
            const QRectF painted = qt::surface::letteredAreaOf(look, lettering);
            EXPECT_TRUE(area.isEmpty() || painted.adjusted(-1, -1, 1, 1).contains(area))
                << "only this area is painted where an assignment changed";
        }
    });
}

TEST_F(SurfaceLetters, AreCutWithDotsWhereNothingElseHelps) {
    const QFont font;
    const qt::surface::FittedText fitted =
        qt::surface::fitText(QStringLiteral("A text without end"), font, 12, 40);
    EXPECT_TRUE(fitted.isCut);
    EXPECT_LE(fitted.width, 40);
    EXPECT_TRUE(fitted.text.endsWith(QChar(0x2026))) << fitted.text.toStdString();
    const qt::surface::FittedText whole = qt::surface::fitText(QStringLiteral("A"), font, 12, 40);
    EXPECT_FALSE(whole.isCut);
    EXPECT_EQ(whole.font.pixelSize(), 12);
}

TEST_F(SurfaceLetters, GrowWithTheController) {
    SurfaceEditor editor;
    const int before =
        qt::surface::linesOf(editor.faceOf(5).look(), lettering).first.font.pixelSize();
    editor.panel.resize(editor.panel.size() * 2);
    EXPECT_GE(qt::surface::linesOf(editor.faceOf(5).look(), lettering).first.font.pixelSize(),
              2 * before - 1);
}

TEST_F(SurfaceLetters, ALargerDesktopFontOpensALargerController) {
    SurfaceEditor editor;
    const QSize usual = editor.panel.sizeHint();
    const QSize least = editor.panel.minimumSizeHint();
    QFont large = editor.panel.font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    editor.panel.setFont(large);
    EXPECT_GT(editor.panel.sizeHint().width(), usual.width());
    EXPECT_EQ(editor.panel.minimumSizeHint(), least) << "it must still fit a small screen";
}

}  // namespace
}  // namespace tests
