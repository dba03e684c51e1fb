// The editor as it is put together, with its real windows, over a MIDI service in software.

#include "app/Editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <memory>
#include <vector>

#include "config/sysex.h"
#include "platform/alsa/AlsaMidiService.h"
#include "support/ScriptedMidiService.h"
#include "support/windows/hands.h"

namespace app {
namespace {

using platform::software::Destination;
using platform::software::Device;
using support::hands::choose;
using support::hands::click;
using support::hands::find;
using support::hands::press;
using support::hands::whenDialogOpens;

const QString alertTitle = QStringLiteral("Tormelk Wyro");
const QString devicesTitle = QStringLiteral("MIDI Devices");

/// Presses Send; says what the alert says. `meanwhile` runs while the alert is open.
std::string send(
    Editor& editor, const std::function<void()>& meanwhile = [] {}) {
    std::string said;
    whenDialogOpens(alertTitle, [&](QDialog& dialog) {
        said = dynamic_cast<QMessageBox&>(dialog).text().toStdString();
        EXPECT_EQ(dynamic_cast<QMessageBox&>(dialog).buttons().size(), 1);
        meanwhile();
        press(dialog, Qt::Key_Enter);
    });
    click(find(editor.view, "send"));
    return said;
}

/// Opens the device dialog by its button; `person` must close it.
void openDevices(Editor& editor, std::function<void(QDialog&)> person) {
    whenDialogOpens(devicesTitle, std::move(person));
    click(find(editor.view, "midiDevices"));
}

void chooseOutput(Editor& editor, int index) {
    openDevices(editor, [index](QDialog& dialog) {
        choose(find<QComboBox>(dialog, "combo_out"), index);
        click(find(dialog, "ok"));
    });
}

class EditorTest : public testing::Test {
protected:
    EditorTest() { editor.show(); }

    /// A destination that a person sees under the name.
    Destination& plug(const char* name) {
        Device& device = midiService.addDevice(name);
        device.addSource(name);
        Destination& destination = device.addDestination(name);
        devices.push_back(&device);
        return destination;
    }

    std::vector<Device*> devices;
    support::ScriptedMidiService midiService;
    std::vector<int> exits;
    qt::desktop::QtDesktop desktop{[this](int status) { exits.push_back(status); }};
    const QTemporaryDir folder;
    const std::string placeOfUnsavedWork = folder.filePath(QStringLiteral("unsaved")).toStdString();
    Editor editor{midiService, desktop, placeOfUnsavedWork};
};

std::vector<QWidget*> aboutWindows() {
    std::vector<QWidget*> found;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowTitle() == QLatin1String("About Tormelk Wyro")) {
            found.push_back(window);
        }
    }
    return found;
}

/// The four messages of the image, one after another.
std::vector<std::uint8_t> messagesOf(const Editor& editor) {
    const auto& image = editor.state.sysData;
    return {image.begin(), image.begin() + config::imageSize};
}

TEST_F(EditorTest, ShowsItsMainWindowAwake) {
    EXPECT_TRUE(editor.view.isVisible());
    EXPECT_EQ(editor.view.windowTitle(), QStringLiteral("Tormelk Wyro[*]"));
    EXPECT_FALSE(editor.view.isWindowModified());
    EXPECT_EQ(find<QComboBox>(editor.view, "combo_mode").currentText(),
              QStringLiteral("Nuendo mode(MCP)"));
}

TEST_F(EditorTest, SendsFourMessagesToTheChosenOutput) {
    Destination& first = plug("Alpha");
    Destination& second = plug("Beta");
    chooseOutput(editor, 1);
    EXPECT_EQ(send(editor), "Send Done");
    EXPECT_TRUE(midiService.at(first).received().empty());
    ASSERT_EQ(midiService.at(second).received().size(), 4U);
    EXPECT_EQ(midiService.at(second).receivedBytes(), messagesOf(editor));
    EXPECT_EQ(midiService.openOutputPorts(), 0U);
    EXPECT_THAT(midiService.misuses(), testing::IsEmpty());
}

TEST_F(EditorTest, AsksForADeviceFirst) {
    Destination& destination = plug("Alpha");
    EXPECT_EQ(send(editor), "Please select MIDI device first");
    EXPECT_TRUE(midiService.at(destination).received().empty());
}

TEST_F(EditorTest, RefusesToSendToADeviceThatVanishedAfterTheChoice) {
    plug("Alpha");
    chooseOutput(editor, 0);
    devices[0]->unplug();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !editor.devices.OutDevice()->isOnline(); }, 1000));
    EXPECT_EQ(send(editor), "Please select MIDI device first");
}

TEST_F(EditorTest, SendsAgainToADeviceThatCameBack) {
    Destination& destination = plug("Alpha");
    chooseOutput(editor, 0);
    devices[0]->unplug();
    QTest::qWait(20);
    devices[0]->plug();
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor.devices.OutDevice()->isOnline(); }, 1000));
    EXPECT_EQ(send(editor), "Send Done");
    EXPECT_EQ(midiService.at(destination).receivedBytes(), messagesOf(editor));
}

TEST_F(EditorTest, GoesOnToTheEndWhenTheDeviceVanishesBetweenTwoMessagesAndSaysSo) {
    Destination& destination = plug("Alpha");
    chooseOutput(editor, 0);
    int messages = 0;
    destination.onReceive([&](const platform::MIDIPacketList&) {
        if (++messages == 2) {
            devices[0]->unplug();
        }
    });
    EXPECT_EQ(send(editor),
              "Send Done\n\nAlpha went away during the Send: 2 of 4 layers are known to have left "
              "this computer");
    EXPECT_EQ(messages, 2);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !editor.devices.OutDevice()->isOnline(); }, 1000));
    EXPECT_EQ(send(editor), "Please select MIDI device first");
}

TEST_F(EditorTest, RefusesToSendToADeviceThatVanishedWhileTheDialogWasOpen) {
    plug("Alpha");
    openDevices(editor, [this](QDialog& dialog) {
        devices[0]->unplug();
        auto& outputs = find<QComboBox>(dialog, "combo_out");
        EXPECT_TRUE(QTest::qWaitFor(
            [&outputs] { return outputs.currentText() == QStringLiteral("Alpha (offline)"); },
            1000));
        click(find(dialog, "ok"));
    });
    EXPECT_EQ(send(editor), "Please select MIDI device first");
}

TEST_F(EditorTest, OffersTheFirstEntryAgainWhenTheChosenDeviceIsOffline) {
    plug("Alpha");
    plug("Beta");
    chooseOutput(editor, 1);
    devices[1]->unplug();
    QTest::qWait(20);
    openDevices(editor, [](QDialog& dialog) {
        EXPECT_EQ(find<QComboBox>(dialog, "combo_out").currentText(), QStringLiteral("Alpha"));
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(EditorTest, HearsOfDevicesWhileAnAlertIsOpen) {
    plug("Alpha");
    chooseOutput(editor, 0);
    send(editor, [this] {
        devices[0]->unplug();
        EXPECT_TRUE(
            QTest::qWaitFor([this] { return !editor.devices.OutDevice()->isOnline(); }, 1000));
    });
}

TEST_F(EditorTest, ShowsTheSameAboutWindowTwice) {
    EXPECT_TRUE(aboutWindows().empty());
    editor.controller.about();
    const std::vector<QWidget*> first = aboutWindows();
    ASSERT_EQ(first.size(), 1U);
    first[0]->close();
    editor.controller.about();
    EXPECT_EQ(aboutWindows(), first);
    EXPECT_TRUE(first[0]->isVisible());
}

TEST_F(EditorTest, EndsTheProcessWithStatusZeroWhenTheMainWindowIsClosed) {
    editor.state.bChange = 1;
    editor.view.close();
    EXPECT_EQ(exits, std::vector<int>{0});
}

TEST_F(EditorTest, ComesBackToTheFrontWhenItsLastWindowIsClosed) {
    editor.controller.about();
    editor.window.window.orderOut();
    EXPECT_FALSE(editor.view.isVisible());
    ASSERT_EQ(aboutWindows().size(), 1U);
    aboutWindows()[0]->close();
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor.view.isVisible(); }, 1000));
    EXPECT_TRUE(exits.empty());
}

TEST_F(EditorTest, StaysHiddenWhileThePadEditorIsOpen) {
    whenDialogOpens(QStringLiteral("Pad Editor"), [this](QDialog& dialog) {
        QTest::qWait(30);
        EXPECT_FALSE(editor.view.isVisible());
        press(dialog, Qt::Key_Escape);
    });
    click(find(editor.view, "paLa2"));
    EXPECT_TRUE(editor.view.isVisible());
}

TEST_F(EditorTest, SharesAProcessWithAnotherEditorUnharmed) {
    plug("Alpha");
    qt::desktop::QtDesktop secondDesktop([](int) {});
    support::ScriptedMidiService secondService;
    auto second = std::make_unique<Editor>(secondService, secondDesktop, placeOfUnsavedWork);
    second->show();
    choose(find<QComboBox>(second->view, "combo_mode"), editor::logicMode);
    chooseOutput(editor, 0);
    EXPECT_EQ(editor.state.modes.machn_mod, editor::nuendoMode);
    EXPECT_EQ(second->state.modes.machn_mod, editor::logicMode);
    EXPECT_EQ(second->devices.OutDevice(), nullptr);
    second.reset();
    EXPECT_EQ(send(editor), "Send Done");
}

/// Hides the windows and opens and closes the only other one, of `editor`.
void closeLastWindow(Editor& editor, const std::vector<Editor*>& hidden) {
    for (Editor* each : hidden) {
        each->window.window.orderOut();
    }
    editor.controller.about();
    ASSERT_EQ(aboutWindows().size(), 1U);
    aboutWindows()[0]->close();
}

TEST_F(EditorTest, ComesBackBesideAnotherEditorOfItsDesktopAndAfterThatOneIsGone) {
    support::ScriptedMidiService secondService;
    auto second = std::make_unique<Editor>(secondService, desktop, placeOfUnsavedWork);
    second->show();
    closeLastWindow(editor, {&editor, second.get()});
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return editor.view.isVisible() && second->view.isVisible(); }, 1000));
    second.reset();
    closeLastWindow(editor, {&editor});
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor.view.isVisible(); }, 1000));
}

/// The editor on a computer whose sequencer cannot be opened: with this error, until the folder of
/// its device node has news.
struct EditorWithoutMidi {
    explicit EditorWithoutMidi(int failure) : error(failure) { editor.show(); }

    int error;
    const QTemporaryDir folder;
    platform::alsa::AlsaMidiService midiService{
        "Tormelk Wyro",
        {folder.filePath(QStringLiteral("seq")).toStdString(),
         [this](const std::string&) { return error; }}};
    qt::desktop::QtDesktop desktop{[](int) {}};
    Editor editor{midiService, desktop, folder.filePath(QStringLiteral("unsaved")).toStdString()};
};

QString statusOf(const Editor& editor) {
    return find<QLabel>(editor.view, "status").text();
}

TEST(EditorWithoutMidi, StartsListsNothingAndSaysSo) {
    EditorWithoutMidi without(ENOENT);
    EXPECT_TRUE(without.editor.view.isVisible());
    EXPECT_EQ(statusOf(without.editor),
              QStringLiteral("The computer's MIDI sequencer is not loaded. MIDI Devices tells what "
                             "to do."));
    openDevices(without.editor, [](QDialog& dialog) {
        EXPECT_EQ(find<QComboBox>(dialog, "combo_in").count(), 0);
        EXPECT_EQ(find<QComboBox>(dialog, "combo_out").count(), 0);
        const auto& hint = find<QLabel>(dialog, "hint");
        EXPECT_TRUE(hint.isVisible());
        EXPECT_TRUE(hint.text().endsWith(QStringLiteral("\nsudo modprobe snd-seq")));
        click(find(dialog, "ok"));
    });
    EXPECT_EQ(send(without.editor), "Please select MIDI device first");
}

TEST(EditorWithoutMidi, FollowsInEveryWindowWhatBecomesOfIt) {
    EditorWithoutMidi without(ENOENT);
    openDevices(without.editor, [&without](QDialog& dialog) {
        without.error = EACCES;
        QFile node(without.folder.filePath(QStringLiteral("seq")));
        EXPECT_TRUE(node.open(QIODevice::WriteOnly));
        const auto& hint = find<QLabel>(dialog, "hint");
        const QString command = QStringLiteral("\nsudo usermod -aG audio $USER");
        EXPECT_TRUE(QTest::qWaitFor([&] { return hint.text().endsWith(command); }, 5000))
            << hint.text().toStdString();
        EXPECT_EQ(statusOf(without.editor),
                  QStringLiteral("This program is not allowed to use the computer's MIDI. MIDI "
                                 "Devices tells what to do."));
        click(find(dialog, "cancel"));
    });
}

}  // namespace
}  // namespace app
