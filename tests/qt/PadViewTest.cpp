#include "qt/PadView.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include "app/Robot.h"
#include "config/layout.h"
#include "editor/mainController.h"
#include "platform/AbsentMidiService.h"
#include "platform/NotificationCentre.h"
#include "qt/MainWindowView.h"
#include "qt/QtDesktop.h"
#include "qt/views.h"

namespace qt {
namespace {

using app::robot::choose;
using app::robot::click;
using app::robot::find;
using app::robot::press;

/// The editor with its real windows, and the pad editor opened by the main window's button.
class PadViewTest : public testing::Test {
protected:
    PadViewTest() {
        addEditorViews(desktop);
        controller.awakeFromNib();
        window.window.makeKeyAndOrderFront();
    }

    /// Opens the pad editor for pad layer `layer` (2 to 4); `person` must close it.
    void open(int layer, std::function<void(QDialog&)> person) {
        app::robot::whenDialogOpens(QStringLiteral("Pad Editor"), std::move(person));
        click(find(main, QStringLiteral("paLa%1").arg(layer).toLatin1().constData()));
    }

    platform::AbsentMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    devices::seldevChoice devices{process};
    firmware::FirmwareState firmware{process};
    editor::EditorState state;
    editor::MainWindow window;
    QtDesktop desktop{[](int) {}};
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
        EXPECT_EQ(button(dialog, "m_paLa1").text(), QStringLiteral("Pad layer 2"));
        EXPECT_EQ(button(dialog, "m_paLa2").text(), QStringLiteral("Pad layer 3"));
        EXPECT_EQ(button(dialog, "m_paLa3").text(), QStringLiteral("Pad layer 4"));
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
}  // namespace qt
