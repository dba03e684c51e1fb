#include "qt/windows/PadView.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include "config/control.h"
#include "config/layout.h"
#include "editor/mainController.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/letterContrast.h"
#include "qt/palettes.h"
#include "qt/surface/FaceButton.h"
#include "qt/surface/FacePanel.h"
#include "qt/windows/MainWindowView.h"
#include "qt/windows/views.h"
#include "support/ScriptedEditor.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

using support::hands::choose;
using support::hands::click;
using support::hands::find;
using support::hands::press;

/// The editor with its real windows, and the pad editor opened by the main window's button.
class PadViewTest : public testing::Test, protected support::EditorParts {
protected:
    PadViewTest() {
        addEditorViews(desktop);
        controller.awakeFromNib();
        window.window.makeKeyAndOrderFront();
    }

    /// Opens the pad editor for pad layer `layer` (2 to 4); `person` must close it.
    void open(int layer, std::function<void(QDialog&)> person) {
        support::hands::whenDialogOpens(QStringLiteral("Pad Editor"), std::move(person));
        click(find(main, QStringLiteral("paLa%1").arg(layer).toLatin1().constData()));
    }

    desktop::QtDesktop desktop{[](int) {}};
    editor::mainController controller{state, window, desktop, devices, firmware};
    MainWindowView main{window, controller};
};

QAbstractButton& button(const QDialog& dialog, const char* name) {
    return find<QAbstractButton>(dialog, name);
}
QComboBox& box(const QDialog& dialog, const char* name) {
    return find<QComboBox>(dialog, name);
}

TEST_F(PadViewTest, HidesTheMainWindowAndBringsItBack) {
    open(2, [this](QDialog& dialog) {
        EXPECT_FALSE(main.isVisible());
        EXPECT_TRUE(dialog.isVisible());
        click(find(dialog, "finish"));
    });
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(PadViewTest, EndsByDoneByEnterByEscapeAndByItsCloseBox) {
    const std::vector<std::function<void(QDialog&)>> waysOut = {
        [](QDialog& dialog) { click(find(dialog, "finish")); },
        [](QDialog& dialog) { press(dialog, Qt::Key_Enter); },
        [](QDialog& dialog) { press(dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); },
    };
    int interval = 40;
    for (const auto& leave : waysOut) {
        ++interval;
        open(3, [&](QDialog& dialog) {
            choose(box(dialog, "combo_intervl"), interval - 25);
            leave(dialog);
        });
        EXPECT_TRUE(main.isVisible());
        EXPECT_EQ(config::trailer(state.sysData, 2, config::intervalOffset), interval)
            << "edits are kept however the window is closed";
    }
}

TEST_F(PadViewTest, NamesTheThreePadLayersAndLightsTheOneItWasOpenedFor) {
    open(3, [](QDialog& dialog) {
        EXPECT_EQ(button(dialog, "m_paLa1").accessibleName(), QStringLiteral("Pad layer 2"));
        EXPECT_EQ(button(dialog, "m_paLa2").accessibleName(), QStringLiteral("Pad layer 3"));
        EXPECT_EQ(button(dialog, "m_paLa3").accessibleName(), QStringLiteral("Pad layer 4"));
        EXPECT_EQ(button(dialog, "m_paLa3").text(), QStringLiteral("4"));
        EXPECT_EQ(dialog.findChild<QWidget*>(QStringLiteral("m_paLa0")), nullptr);
        EXPECT_TRUE(button(dialog, "m_paLa2").isChecked());
        EXPECT_FALSE(button(dialog, "m_paLa1").isChecked());
        click(button(dialog, "m_paLa3"));
        EXPECT_TRUE(button(dialog, "m_paLa3").isChecked());
        EXPECT_FALSE(button(dialog, "m_paLa2").isChecked());
        click(find(dialog, "finish"));
    });
}

TEST_F(PadViewTest, EditsTheNoteAndTheChannelOfThePadThatIsClicked) {
    open(2, [](QDialog& dialog) {
        click(button(dialog, "p1"));
        EXPECT_TRUE(button(dialog, "p1").isChecked());
        choose(box(dialog, "combo_msg"), 60);
        choose(box(dialog, "combo_chan"), 3);
        click(find(dialog, "finish"));
    });
    EXPECT_EQ(config::number(state.sysData, 1, 70), 60);
    EXPECT_EQ(config::channel(state.sysData, 1, 70), 3);
}

TEST_F(PadViewTest, EditsTheChannelOfAllPadsAtOnce) {
    open(4, [](QDialog& dialog) {
        click(button(dialog, "p5"));
        choose(box(dialog, "combo_chanMod"), 1);
        choose(box(dialog, "combo_chan"), 7);
        click(find(dialog, "finish"));
    });
    for (int control = config::firstPad; control <= config::lastPad; ++control) {
        EXPECT_EQ(config::channel(state.sysData, 3, control), 7);
    }
}

TEST_F(PadViewTest, ArrangesThePadsInAGridInReadingOrder) {
    open(2, [](QDialog& dialog) {
        const auto placeOf = [&dialog](int pad) {
            const QAbstractButton& shown =
                button(dialog, QStringLiteral("p%1").arg(pad).toLatin1().constData());
            return shown.mapTo(&dialog, shown.rect().center());
        };
        for (int pad = 1; pad <= 9; ++pad) {
            EXPECT_EQ(placeOf(pad).x(), placeOf((pad - 1) % 3 + 1).x());
            EXPECT_EQ(placeOf(pad).y(), placeOf((pad - 1) / 3 * 3 + 1).y());
        }
        EXPECT_LT(placeOf(1).x(), placeOf(2).x());
        EXPECT_LT(placeOf(1).y(), placeOf(4).y());
        click(find(dialog, "finish"));
    });
}

TEST_F(PadViewTest, OffersAConstantVelocityOnlyWithTheConstantCurve) {
    open(2, [](QDialog& dialog) {
        const auto& text = find<QLabel>(dialog, "tx_Non");
        EXPECT_EQ(text.text(), QStringLiteral("None"));
        EXPECT_FALSE(box(dialog, "combo_curConst").isEnabled());
        choose(box(dialog, "combo_curv"), 5);
        EXPECT_EQ(text.text(), QStringLiteral("Const"));
        EXPECT_TRUE(box(dialog, "combo_curConst").isEnabled());
        EXPECT_EQ(box(dialog, "combo_curConst").currentText(), QStringLiteral("84"));
        click(find(dialog, "finish"));
    });
    EXPECT_EQ(config::trailer(state.sysData, 1, config::curveOffset), 84);
}

TEST_F(PadViewTest, DoesNotClickThePadThatHasTheFocusOnEnter) {
    open(2, [this](QDialog& dialog) {
        click(button(dialog, "p1"));
        button(dialog, "p2").setFocus();
        press(button(dialog, "p2"), Qt::Key_Return);
        EXPECT_EQ(state.pads.m_pad_CurSel, 70) << "Enter is Done";
    });
}

surface::FaceButton& face(const QDialog& dialog, const char* name) {
    return dynamic_cast<surface::FaceButton&>(find(dialog, name));
}

TEST_F(PadViewTest, ShowsOnEachPadWhatItSendsInTheLayerShown) {
    config::setNumber(state.sysData, 2, 66, 61);  // control 66 is the pad in the middle
    config::setMode(state.sysData, 2, 68, 0x0B);  // and 68 the one beside the last
    config::setNumber(state.sysData, 2, 68, 64);
    config::setChannel(state.sysData, 2, 68, 2);
    open(3, [](QDialog& dialog) {
        EXPECT_EQ(face(dialog, "p5").look().assignment.shortText(), "C#4");
        EXPECT_EQ(face(dialog, "p8").look().assignment.shortText(), "CC 64");
        EXPECT_EQ(face(dialog, "p8").toolTip(),
                  QStringLiteral("Pad 8\nControl change 64 Sustain, channel 3"));
        EXPECT_EQ(face(dialog, "p8").accessibleName(), QStringLiteral("Pad 8"));
        EXPECT_EQ(face(dialog, "p8").accessibleDescription(),
                  QStringLiteral("Control change 64 Sustain, channel 3"));
        EXPECT_EQ(face(dialog, "p8").look().assignment.channelText(), "ch 3");
        click(find(dialog, "finish"));
    });
}

TEST_F(PadViewTest, ShowsAnEditOnThePadAtOnce) {
    open(2, [](QDialog& dialog) {
        click(button(dialog, "p5"));
        choose(box(dialog, "combo_msg"), 60);
        EXPECT_EQ(face(dialog, "p5").look().assignment.shortText(), "C4");
        choose(box(dialog, "combo_chanMod"), 1);
        choose(box(dialog, "combo_chan"), 3);
        for (const char* pad : {"p1", "p5", "p9"}) {
            EXPECT_EQ(face(dialog, pad).look().assignment.channelText(), "ch 4") << pad;
        }
        click(button(dialog, "m_paLa2"));
        EXPECT_NE(face(dialog, "p5").look().assignment.shortText(), "C4") << "of another layer";
        click(find(dialog, "finish"));
    });
}

TEST_F(PadViewTest, SetsWhatBelongsToThePadApartFromWhatBelongsToTheLayer) {
    open(2, [](QDialog& dialog) {
        const auto text = [&dialog](const char* outlet) {
            return find<QLabel>(dialog, outlet).text();
        };
        EXPECT_EQ(text("selectedPad"), QStringLiteral("No pad selected"));
        EXPECT_EQ(text("selectedSends"),
                  QStringLiteral("Click a pad to set its note and channel."));
        EXPECT_EQ(text("selectedLayer"), QStringLiteral("Pad layer 2"));
        click(button(dialog, "p5"));
        choose(box(dialog, "combo_msg"), 60);
        EXPECT_EQ(text("selectedPad"), QStringLiteral("Pad 5"));
        EXPECT_TRUE(text("selectedSends").startsWith(QStringLiteral("Note 60 C4, channel ")));
        EXPECT_EQ(text("status"), QStringLiteral("Pad 5: note 60 C4"));
        click(button(dialog, "m_paLa3"));
        EXPECT_EQ(text("selectedLayer"), QStringLiteral("Pad layer 4"));
        const auto topOf = [&dialog](const char* outlet) {
            const QWidget& widget = find<QWidget>(dialog, outlet);
            return widget.mapTo(&dialog, QPoint(0, 0)).y();
        };
        for (const char* ofPad : {"combo_msg", "combo_chan", "combo_chanMod"}) {
            EXPECT_LT(topOf(ofPad), topOf("selectedLayer")) << ofPad;
        }
        for (const char* ofLayer : {"combo_intervl", "combo_curv", "combo_curConst"}) {
            EXPECT_GT(topOf(ofLayer), topOf("selectedLayer")) << ofLayer;
        }
        click(find(dialog, "finish"));
    });
}

TEST_F(PadViewTest, IsUsedByTheKeyboardAsTheControllerIs) {
    open(2, [this](QDialog& dialog) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        click(button(dialog, "p5"));
        button(dialog, "p5").setFocus();
        const auto focused = [] { return QApplication::focusWidget()->objectName().toStdString(); };
        const auto hit = [](Qt::Key key) { press(*QApplication::focusWidget(), key); };
        hit(Qt::Key_Right);
        EXPECT_EQ(focused(), "p6");
        EXPECT_EQ(state.pads.m_pad_CurSel, 71) << "the control behind pad 6";
        hit(Qt::Key_Right);
        EXPECT_EQ(focused(), "p6") << "nothing lies further right";
        hit(Qt::Key_Down);
        EXPECT_EQ(focused(), "p9");
        hit(Qt::Key_Home);
        EXPECT_EQ(focused(), "p7");
        hit(Qt::Key_End);
        EXPECT_EQ(focused(), "p9");
        hit(Qt::Key_Up);
        hit(Qt::Key_Up);
        hit(Qt::Key_Up);
        EXPECT_EQ(focused(), "m_paLa3");
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 1) << "a layer is not switched on the way";
        hit(Qt::Key_Space);
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 3);
        hit(Qt::Key_Left);
        EXPECT_EQ(focused(), "m_paLa2");
        hit(Qt::Key_Down);
        EXPECT_EQ(focused(), "p2");
        hit(Qt::Key_3);
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 2);
        hit(Qt::Key_1);
        hit(Qt::Key_5);
        EXPECT_EQ(state.pads.m_zPaLayer_CurSel, 2) << "pad layer 1 is the main window's";
        click(find(dialog, "finish"));
    });
}

TEST_F(PadViewTest, CanBeReadInLightAndDark) {
    for (const QPalette& palette : {tests::lightPalette(), tests::darkPalette()}) {
        QApplication::setPalette(palette);
        open(2, [](QDialog& dialog) {
            click(button(dialog, "p5"));
            auto& pads = dynamic_cast<surface::FacePanel&>(find<QWidget>(dialog, "pads"));
            EXPECT_EQ(tests::textCount(pads), 9 * 3 + 3 + 1);
            const QStringList unreadable = tests::unreadableTexts(pads.grab().toImage(), pads);
            EXPECT_TRUE(unreadable.isEmpty()) << unreadable.join(QLatin1Char('\n')).toStdString();
            click(find(dialog, "finish"));
        });
    }
    QApplication::setPalette(tests::lightPalette());
}

TEST_F(PadViewTest, CanBeOpenedAgainAndAgain) {
    for (int layer = 2; layer <= 4; ++layer) {
        bool opened = false;
        open(layer, [&opened](QDialog& dialog) {
            opened = true;
            press(dialog, Qt::Key_Escape);
        });
        EXPECT_TRUE(opened);
    }
}

}  // namespace
}  // namespace qt::windows
