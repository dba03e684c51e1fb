#include "qt/windows/MainWindowFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include "config/control.h"
#include "config/layout.h"
#include "editor/pad.h"
#include "firmware/firm.h"
#include "platform/NotificationCentre.h"
#include "qt/surface/ControlButton.h"
#include "support/ScriptedDesktop.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

using support::hands::click;
using support::hands::find;
using support::hands::press;
using testing::ElementsAre;

using MainWindowViewTest = MainWindowFixture;

TEST_F(MainWindowViewTest, HasAButtonForEachControlWhichSelectsIt) {
    for (int tag = 0; tag < config::buttonCount; ++tag) {
        QAbstractButton& clicked = button(QStringLiteral("encoder%1").arg(tag));
        click(clicked);
        const auto& model = window.keysOrderedByTag[static_cast<std::size_t>(tag)];
        EXPECT_EQ(model.state(), 1) << tag;
        EXPECT_TRUE(clicked.isChecked()) << tag;
        EXPECT_FALSE(clicked.text().isEmpty()) << tag;
        EXPECT_FALSE(clicked.toolTip().isEmpty()) << tag;
        EXPECT_FALSE(clicked.accessibleName().isEmpty()) << tag;
    }
}

TEST_F(MainWindowViewTest, NoTwoControlsShareTheirFullName) {
    QSet<QString> names;
    for (int tag = 0; tag < config::buttonCount; ++tag) {
        names.insert(button(QStringLiteral("encoder%1").arg(tag)).accessibleName());
    }
    EXPECT_EQ(names.size(), config::buttonCount);
}

TEST_F(MainWindowViewTest, LightsOneControlAtATime) {
    click(button(QStringLiteral("encoder10")));
    click(button(QStringLiteral("encoder50")));
    EXPECT_FALSE(button(QStringLiteral("encoder10")).isChecked());
    EXPECT_TRUE(button(QStringLiteral("encoder50")).isChecked());
    press(button(QStringLiteral("encoder51")), Qt::Key_Space);
    EXPECT_FALSE(button(QStringLiteral("encoder50")).isChecked());
    EXPECT_TRUE(button(QStringLiteral("encoder51")).isChecked());
    EXPECT_EQ(state.selection.keyEvnt, 51);
}

TEST_F(MainWindowViewTest, SelectsThePadBehindAPadButton) {
    enterUserDefinedMode();
    click(button(QStringLiteral("encoder65")));
    EXPECT_EQ(state.selection.keyEvnt, 70);
    EXPECT_TRUE(button(QStringLiteral("encoder65")).isChecked());
}

TEST_F(MainWindowViewTest, ArrangesTheControlsAsTheControllerIsBuilt) {
    const auto placeOf = [this](int tag) {
        QAbstractButton& shown = button(QStringLiteral("encoder%1").arg(tag));
        return shown.mapTo(&view, shown.rect().center());
    };
    for (int strip = 0; strip < 8; ++strip) {
        const std::vector<int> column = {48 + strip,    40 + strip,    4 * strip, 4 * strip + 1,
                                         4 * strip + 2, 4 * strip + 3, 56 + strip};
        for (std::size_t i = 1; i < column.size(); ++i) {
            EXPECT_EQ(placeOf(column[i]).x(), placeOf(column[0]).x()) << column[i];
            EXPECT_GT(placeOf(column[i]).y(), placeOf(column[i - 1]).y()) << column[i];
        }
    }
    for (int fader = 56; fader < 64; ++fader) {
        EXPECT_LT(placeOf(fader).x(), placeOf(fader + 1).x());
        EXPECT_EQ(placeOf(fader).y(), placeOf(fader + 1).y());
    }
    for (int first : {32, 36}) {
        for (int key = first; key < first + 3; ++key) {
            EXPECT_LT(placeOf(key).x(), placeOf(key + 1).x());
            EXPECT_EQ(placeOf(key).y(), placeOf(key + 1).y());
        }
    }
    for (int position = 0; position < 9; ++position) {
        EXPECT_EQ(placeOf(65 + position).x(), placeOf(65 + position % 3).x());
        EXPECT_EQ(placeOf(65 + position).y(), placeOf(65 + position / 3 * 3).y());
    }
    EXPECT_LT(placeOf(65).x(), placeOf(66).x());
    EXPECT_LT(placeOf(65).y(), placeOf(68).y());
}

TEST_F(MainWindowViewTest, CaptionsTheControlsByTheirFactoryRoles) {
    const auto captionsOf = [this](std::initializer_list<int> tags) {
        QStringList captions;
        for (const int tag : tags) {
            captions.append(button(QStringLiteral("encoder%1").arg(tag)).text());
        }
        return captions.join(QLatin1Char(','));
    };
    EXPECT_EQ(captionsOf({20, 21, 22, 23}), QStringLiteral("Select,Solo,Mute,Rec"));
    EXPECT_EQ(captionsOf({32, 33, 34, 35}),
              QStringLiteral("Ch Left,Ch Right,Bank Left,Bank Right"));
    EXPECT_EQ(captionsOf({36, 37, 38, 39}), QStringLiteral("Play,Stop,Rewind,Fast Fwd"));
    EXPECT_EQ(captionsOf({40, 48, 56, 64}), QStringLiteral("Push,Encoder,Fader,Fader"));
    EXPECT_EQ(captionsOf({65, 73}), QStringLiteral("Pad 1,Pad 9"));
    EXPECT_EQ(button(QStringLiteral("encoder22")).accessibleName(),
              QStringLiteral("Strip 6, Mute"));
    EXPECT_EQ(button(QStringLiteral("encoder64")).accessibleName(), QStringLiteral("Master fader"));
}

TEST_F(MainWindowViewTest, SwitchesModeLayersByTheirButtons) {
    enterUserDefinedMode();
    for (int layer = 1; layer <= 4; ++layer) {
        click(button(QStringLiteral("moLa%1").arg(layer)));
        EXPECT_EQ(state.layers.m_moLa, layer - 1);
        for (int other = 1; other <= 4; ++other) {
            EXPECT_EQ(button(QStringLiteral("moLa%1").arg(other)).isChecked(), other == layer);
        }
    }
    click(button(QStringLiteral("moLa4")));
    EXPECT_TRUE(button(QStringLiteral("moLa4")).isChecked()) << "a second click keeps it lit";
}

TEST_F(MainWindowViewTest, OpensThePadEditorForPadLayersTwoToFour) {
    for (int layer = 2; layer <= 4; ++layer) {
        desktop.onModal<editor::pad>([this, layer](editor::pad& pad) {
            EXPECT_EQ(state.pads.m_zPaLayer_CurSel, layer - 1);
            EXPECT_FALSE(view.isVisible()) << "the main window is hidden meanwhile";
            pad.finish.click();
        });
        click(button(QStringLiteral("paLa%1").arg(layer)));
        EXPECT_TRUE(view.isVisible());
    }
    EXPECT_EQ(desktop.modalRuns(), 0U);
}

TEST_F(MainWindowViewTest, FlipsTheLock) {
    EXPECT_TRUE(button(QStringLiteral("locker")).isChecked());
    click(button(QStringLiteral("locker")));
    EXPECT_FALSE(button(QStringLiteral("locker")).isChecked());
    for (int layer = 0; layer < config::layerCount; ++layer) {
        EXPECT_EQ(config::trailer(state.sysData, layer, config::lockOffset), 0);
    }
    press(button(QStringLiteral("locker")), Qt::Key_Space);
    EXPECT_TRUE(button(QStringLiteral("locker")).isChecked());
}

TEST_F(MainWindowViewTest, ShowsTheTriggerIndicatorWhichTakesNoClick) {
    QAbstractButton& lamp = button(QStringLiteral("trigger"));
    EXPECT_FALSE(lamp.isChecked());
    window.trigger.setState(1);
    EXPECT_TRUE(lamp.isChecked());
    EXPECT_EQ(lamp.focusPolicy(), Qt::NoFocus);
    EXPECT_NE(view.childAt(lamp.mapTo(&view, lamp.rect().center())), &lamp)
        << "what lies under it gets the click";
}

TEST_F(MainWindowViewTest, EditsTheSelectedControlByItsBoxes) {
    enterUserDefinedMode();
    click(button(QStringLiteral("encoder10")));
    support::hands::choose(box("combo_chan"), 4);
    support::hands::choose(box("combo_type"), editor::kindControlChange);
    support::hands::choose(box("combo_cc"), 100);
    support::hands::choose(box("combo_trig"), 1);
    EXPECT_EQ(config::channel(state.sysData, 0, 10), 4);
    EXPECT_EQ(config::number(state.sysData, 0, 10), 100);
    EXPECT_EQ(config::mode(state.sysData, 0, 10), 0x4B);
    EXPECT_EQ(box("combo_cc").currentText(), QStringLiteral("100 RPN LSB"));
}

TEST_F(MainWindowViewTest, GreysThePropertyBoxesInAFactoryMode) {
    for (const char* outlet : {"combo_chan", "combo_cc", "combo_type", "combo_trig"}) {
        EXPECT_FALSE(box(outlet).isEnabled()) << outlet;
    }
    enterUserDefinedMode();
    for (const char* outlet : {"combo_chan", "combo_cc", "combo_type", "combo_trig"}) {
        EXPECT_TRUE(box(outlet).isEnabled()) << outlet;
    }
}

TEST_F(MainWindowViewTest, LabelsEachBox) {
    for (const char* outlet :
         {"combo_chan", "combo_cc", "combo_type", "combo_trig", "combo_mode"}) {
        const QWidget* labelled = &box(outlet);
        const QList<QLabel*> labels = view.findChildren<QLabel*>();
        EXPECT_TRUE(std::ranges::any_of(labels, [labelled](const QLabel* label) {
            return label->buddy() == labelled && !label->text().isEmpty();
        })) << outlet;
    }
}

TEST_F(MainWindowViewTest, CaptionsTheNumberBoxAsTheProgramSays) {
    const auto& caption = find<QLabel>(view, "mode_info");
    EXPECT_EQ(caption.buddy(), &box("combo_cc"));
    EXPECT_EQ(caption.text(), QStringLiteral("N&umber"));
    window.mode_info.setStringValue("CC Number");
    EXPECT_EQ(caption.text(), QStringLiteral("CC Number"));
}

TEST_F(MainWindowViewTest, ShowsTheTitleOfTheProgram) {
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Tormelk Wyro[*]"));
}

TEST_F(MainWindowViewTest, MarksInItsTitleThatTheImageDiffersFromWhatWasSavedOrLoadedLast) {
    const QTemporaryDir folder;
    const std::string preset = folder.filePath(QStringLiteral("Stage.Tormelk")).toStdString();
    EXPECT_FALSE(view.isWindowModified());
    click(button(QStringLiteral("locker")));
    EXPECT_TRUE(view.isWindowModified());
    click(button(QStringLiteral("locker")));
    EXPECT_FALSE(view.isWindowModified()) << "it is as it was at the start";
    enterUserDefinedMode();
    EXPECT_TRUE(view.isWindowModified());
    desktop.answerSavePanel(preset);
    controller.saveFile();
    EXPECT_FALSE(view.isWindowModified());
    click(button(QStringLiteral("encoder9")));
    EXPECT_FALSE(view.isWindowModified()) << "looking changes nothing";
    support::hands::choose(box("combo_trig"), 1);
    EXPECT_TRUE(view.isWindowModified()) << "a trigger counts as well as a channel or a number";
    desktop.answerOpenPanel(preset);
    controller.loadFile();
    EXPECT_FALSE(view.isWindowModified());
}

TEST_F(MainWindowViewTest, SaysWhatToDoWhereThereIsNoOutput) {
    const auto text = [this](const char* outlet) { return find<QLabel>(view, outlet).text(); };
    EXPECT_EQ(
        text("status"),
        QStringLiteral("No MIDI output found. Connect the controller, or start the simulator."));
    EXPECT_EQ(text("output"), QStringLiteral("No output found"));
    EXPECT_FALSE(button(QStringLiteral("outputLamp")).isChecked());
}

TEST_F(MainWindowViewTest, ShowsWhatTheLastActionDidAndWhetherTheOutputIsOnline) {
    const auto text = [this](const char* outlet) { return find<QLabel>(view, outlet).text(); };
    window.output.setStringValue("Tormelk MIDI 1");
    window.outputLamp.setState(1);
    EXPECT_EQ(text("output"), QStringLiteral("Tormelk MIDI 1"));
    EXPECT_TRUE(button(QStringLiteral("outputLamp")).isChecked());
    enterUserDefinedMode();
    EXPECT_EQ(text("status"), QStringLiteral("DAW mode: User Defined"));
    click(button(QStringLiteral("encoder9")));
    support::hands::choose(box("combo_chan"), 3);
    EXPECT_EQ(text("status"), QStringLiteral("Strip 3, Solo: channel 4"));
}

TEST_F(MainWindowViewTest, SendsFromTheMenuTheButtonAndTheKeyboard) {
    for (int time = 0; time < 4; ++time) {
        desktop.answerAlert();
    }
    action("actionSend").trigger();
    click(button(QStringLiteral("send")));
    press(view, Qt::Key_Return, Qt::ControlModifier);
    press(view, Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    const toolkit::Alert expected{"Tormelk Wyro", "Please select MIDI device first"};
    EXPECT_THAT(desktop.alerts(), ElementsAre(expected, expected, expected, expected));
}

TEST_F(MainWindowViewTest, ChoosesTheDeviceFromTheMenuTheButtonAndTheKeyboard) {
    int opened = 0;
    for (int time = 0; time < 3; ++time) {
        desktop.onModal<devices::seldev>([&opened](devices::seldev& dialog) {
            ++opened;
            dialog.cancelButton.click();
        });
    }
    action("actionMidiDevices").trigger();
    click(button(QStringLiteral("midiDevices")));
    press(view, Qt::Key_M, Qt::ControlModifier);
    EXPECT_EQ(opened, 3);
}

TEST_F(MainWindowViewTest, SavesAPresetFromTheMenuAndTheKeyboard) {
    desktop.answerSavePanel(std::nullopt);
    desktop.answerSavePanel(std::nullopt);
    action("actionSavePreset").trigger();
    press(view, Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(desktop.journal(), testing::SizeIs(2));
}

TEST_F(MainWindowViewTest, LoadsAPresetFromTheMenuAndTheKeyboard) {
    desktop.answerOpenPanel(std::nullopt);
    desktop.answerOpenPanel(std::nullopt);
    action("actionLoadPreset").trigger();
    press(view, Qt::Key_O, Qt::ControlModifier);
    EXPECT_THAT(desktop.journal(), testing::SizeIs(2));
}

TEST_F(MainWindowViewTest, OpensTheFirmwareWindowFromTheMenu) {
    int opened = 0;
    desktop.onModal<firmware::firm>([&opened](firmware::firm& shown) {
        ++opened;
        shown.window().close();
    });
    action("actionFirmwareUpdate").trigger();
    EXPECT_EQ(opened, 1);
}

TEST_F(MainWindowViewTest, QuitsFromTheMenuAndTheKeyboard) {
    action("actionQuit").trigger();
    press(view, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_THAT(desktop.exits(), ElementsAre(0, 0));
}

TEST_F(MainWindowViewTest, QuitsWithStatusZeroWhenItIsClosedEvenWithUnsavedChanges) {
    state.bChange = 1;
    view.close();
    EXPECT_THAT(desktop.exits(), ElementsAre(0));
}

TEST_F(MainWindowViewTest, ShowsTheAboutWindowFromTheMenu) {
    action("actionAbout").trigger();
    action("actionAbout").trigger();
    EXPECT_THAT(desktop.journal(), testing::SizeIs(2));
}

TEST_F(MainWindowViewTest, NamesItsMenusAndEntriesPlainly) {
    QStringList texts;
    for (const QAction* menu : view.menuBar()->actions()) {
        for (const QAction* entry : menu->menu()->actions()) {
            if (!entry->isSeparator()) {
                texts.append(menu->text() + QLatin1Char('/') + entry->text());
            }
        }
    }
    EXPECT_EQ(texts.join(QLatin1Char('\n')).remove(QLatin1Char('&')).toStdString(),
              "File/Load Preset...\nFile/Save Preset...\nFile/Quit\n"
              "Edit/Undo\nEdit/Redo\n"
              "Controller/Send\nController/MIDI Devices...\nController/Firmware Update...\n"
              "Help/About Tormelk Wyro");
}

TEST_F(MainWindowViewTest, NoLetterLeadsToTwoPlaces) {
    QStringList letters;
    const auto collect = [&letters](const QString& text) {
        const qsizetype at = text.indexOf(QLatin1Char('&'));
        if (at >= 0) {
            letters.append(text.mid(at + 1, 1).toLower());
        }
    };
    for (const QAction* menu : view.menuBar()->actions()) {
        collect(menu->text());
    }
    for (const QLabel* label : view.findChildren<QLabel*>()) {
        collect(label->text());
    }
    for (const QAbstractButton* shown : view.findChildren<QAbstractButton*>()) {
        collect(shown->text());
    }
    EXPECT_EQ(letters.size(), QSet<QString>(letters.begin(), letters.end()).size())
        << letters.join(QString()).toStdString();
}

TEST_F(MainWindowViewTest, FitsASmallScreen) {
    EXPECT_LE(view.minimumSizeHint().width(), 1280);
    EXPECT_LE(view.minimumSizeHint().height(), 720 - 40) << "with space for a title bar";
}

}  // namespace
}  // namespace qt::windows
