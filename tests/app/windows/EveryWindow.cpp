#include "app/windows/EveryWindow.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <filesystem>
#include <string>

#include "app/Demo.h"
#include "devices/missingMidi.h"
#include "firmware/firm.h"
#include "firmware/readImage.h"
#include "qt/mouse.h"
#include "sending/Uploader.h"
#include "support/ScriptedMidiService.h"
#include "support/windows/hands.h"

namespace tests {

namespace {

using support::hands::choose;
using support::hands::click;
using support::hands::find;
using support::hands::press;
using support::hands::whenDialogOpens;
using Visit = std::function<void(QWidget& window, const QString& name)>;

/// Lays the window out and shows it.
void show(QWidget& window, const char* name, const Visit& visit) {
    (void)QTest::qWaitForWindowExposed(&window);
    window.resize(window.sizeHint().expandedTo(window.minimumSizeHint()));
    QApplication::processEvents();
    visit(window, QString::fromLatin1(name));
}

void showMain(app::Demo& demo, const Visit& visit) {
    QWidget& window = demo.editor.view;
    show(window, "main-start", visit);
    click(find(window, "encoder21"));
    show(window, "main-nuendo", visit);
    choose(find<QComboBox>(window, "combo_mode"), editor::userDefinedMode);
    click(find(window, "moLa2"));
    click(find(window, "encoder58"));
    show(window, "main", visit);
    click(find(window, "encoder68"));
    find(window, "encoder69").setFocus();
    show(window, "main-pad", visit);
}

/// With the output chosen, everything sent and the lock off.
void showMainAfterSend(app::Demo& demo, const Visit& visit) {
    QWidget& window = demo.editor.view;
    click(find(window, "moLa1"));
    click(find(window, "encoder9"));
    choose(find<QComboBox>(window, "combo_type"), editor::kindControlChange);
    choose(find<QComboBox>(window, "combo_cc"), 64);
    choose(find<QComboBox>(window, "combo_trig"), 1);
    click(find(window, "locker"));
    show(window, "main-edited", visit);
    whenDialogOpens(QStringLiteral("Tormelk Wyro"),
                    [](QDialog& dialog) { press(dialog, Qt::Key_Enter); });
    click(find(window, "send"));
    show(window, "main-sent", visit);
    window.setEnabled(false);
    show(window, "main-disabled", visit);
    window.setEnabled(true);
    choose(find<QComboBox>(window, "combo_mode"), editor::huiMode);
    show(window, "main-hui", visit);
    choose(find<QComboBox>(window, "combo_mode"), editor::userDefinedMode);
}

/// For what another editor than the demo's keeps.
std::string elsewhere(const app::Demo& demo) {
    return demo.folder.filePath(QStringLiteral("elsewhere")).toStdString();
}

/// As an owner meets it who has not plugged anything in.
void showMainWithoutOutput(app::Demo& demo, const Visit& visit) {
    support::ScriptedMidiService empty;
    app::Editor editor(empty, demo.desktop, elsewhere(demo));
    editor.show();
    show(editor.view, "main-no-output", visit);
}

void showDeviceDialog(app::Demo& demo, const Visit& visit) {
    whenDialogOpens(QStringLiteral("MIDI Devices"), [&visit](QDialog& dialog) {
        choose(find<QComboBox>(dialog, "combo_in"), 1);
        choose(find<QComboBox>(dialog, "combo_out"), 1);
        show(dialog, "seldev", visit);
        click(find(dialog, "ok"));
    });
    click(find(demo.editor.view, "midiDevices"));
}

void showAlert(app::Demo& demo, const Visit& visit) {
    whenDialogOpens(QStringLiteral("Tormelk Wyro"), [&visit](QDialog& dialog) {
        show(dialog, "alert", visit);
        press(dialog, Qt::Key_Enter);
    });
    click(find(demo.editor.view, "send"));
    whenDialogOpens(QStringLiteral("Confirm"), [&visit](QDialog& dialog) {
        show(dialog, "alert-question", visit);
        press(dialog, Qt::Key_Escape);
    });
    demo.desktop.runAlertPanel(
        {"Confirm", "Your changes on User-Defined Mode hasn't been saved.\n\nLoad file continue?",
         "OK", "Cancel"});
    whenDialogOpens(QStringLiteral("Tormelk Wyro"), [&visit](QDialog& dialog) {
        show(dialog, "alert-reason", visit);
        press(dialog, Qt::Key_Escape);
    });
    demo.desktop.runAlertPanel(
        {"Tormelk Wyro", "Fail to save Tormelk file\n\nNo space left on device"});
}

void showPadEditor(app::Demo& demo, const Visit& visit) {
    whenDialogOpens(QStringLiteral("Pad Editor"), [&visit](QDialog& dialog) {
        show(dialog, "pad-start", visit);
        click(find(dialog, "p5"));
        show(dialog, "pad", visit);
        choose(find<QComboBox>(dialog, "combo_curv"), 5);
        show(dialog, "pad-constant", visit);
        click(find(dialog, "finish"));
    });
    click(find(demo.editor.view, "paLa3"));
}

void showAbout(app::Demo& demo, const Visit& visit) {
    demo.editor.controller.about();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowTitle() == QLatin1String("About Tormelk Wyro")) {
            show(*window, "about", visit);
            window->close();
            return;
        }
    }
    qFatal("The about window did not open");
}

/// Opens the firmware window; `person` must close it.
void openFirmware(app::Demo& demo, std::function<void(QDialog&)> person) {
    whenDialogOpens(QStringLiteral("Firmware Upgrade"), std::move(person));
    demo.editor.view.findChild<QAction*>(QStringLiteral("actionFirmwareUpdate"))->trigger();
}

/// The confirmation that Upload asks for, which is cancelled.
void showMessage(const QDialog& firmware, const char* name, const Visit& visit) {
    whenDialogOpens(QStringLiteral("Firmware Update"), [name, &visit](QDialog& dialog) {
        show(dialog, name, visit);
        press(dialog, Qt::Key_Escape);
    });
    click(find(firmware, "upload"));
}

/// What the window looks like in the middle of an upload.
void showUpload(app::Demo& demo, const Visit& visit) {
    firmware::firm controller(demo.editor.firmware, demo.editor.devices, demo.desktop);
    whenDialogOpens(QStringLiteral("Firmware Upgrade"), [&](QDialog& dialog) {
        controller.progress.setMaxValue(79);
        controller.progress.setDoubleValue(31);
        controller.step5.setStringValue("39 %, block 31 of 79, 56 s left");
        show(dialog, "firmware-upload", visit);
        press(dialog, Qt::Key_Escape);
    });
    demo.desktop.runModalForWindow(controller);
}

/// An upload of which the controller takes all but the last blocks, and the alert after it.
void showCutUpload(app::Demo& demo, support::ScriptedMidiService& service, const Visit& visit) {
    demo.editor.devices.midi_device_open = 1;
    sending::UploadData& data = demo.editor.firmware;
    std::size_t pauses = 0;
    sending::Uploader uploader(
        data, {demo.midiService, [&demo] { return demo.editor.devices.OutDevice(); },
               [&](sending::Seconds) {
                   if (++pauses == 36 + 31 * 531 + 100) {
                       service.at(demo.destination).holdBack();
                   } else if (pauses == 36 + 31 * 531 + 200) {
                       service.at(demo.destination).giveUp();
                   }
               }});
    demo.editor.firmware.upload = uploader.upload();
    demo.editor.firmware.lastStepDone = 2;
    demo.editor.devices.midi_device_open = 0;
    demo.editor.firmware.m_bin_file = 0;
    openFirmware(demo, [&](QDialog& dialog) {
        show(dialog, "firmware-cut", visit);
        const std::string truth = find<QLabel>(dialog, "step5").text().toStdString();
        whenDialogOpens(QStringLiteral("Upload"), [&visit](QDialog& alert) {
            show(alert, "alert-cut", visit);
            press(alert, Qt::Key_Escape);
        });
        demo.desktop.runAlertPanel({"Upload", "Upload completed.\n\n" + truth});
        press(dialog, Qt::Key_Escape);
    });
    demo.editor.firmware.upload.reset();
}

/// A firmware file of this size; what is in it does not matter here.
void chooseFile(app::Demo& demo, const QTemporaryDir& folder, const char* name, qsizetype size) {
    QFile file(folder.filePath(QString::fromLatin1(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(size, 'f')) != size) {
        qFatal("%s cannot be written", name);
    }
    file.close();
    (void)firmware::readImage(file.fileName().toStdString(), demo.editor.firmware);
}

void showFirmware(app::Demo& demo, support::ScriptedMidiService& service, const Visit& visit) {
    const QTemporaryDir folder;
    openFirmware(demo, [&](QDialog& dialog) {
        show(dialog, "firmware", visit);
        press(dialog, Qt::Key_Escape);
    });
    demo.tormelk.receive(sending::update);
    demo.editor.devices.midi_device_open = 1;
    demo.editor.firmware.lastStepDone = 4;
    chooseFile(demo, folder, "tormelk_2.bin", 40000);
    openFirmware(demo, [&](QDialog& dialog) {
        show(dialog, "firmware-ready", visit);
        service.at(demo.destination).setConnectedPrograms({"Recorder"});
        showMessage(dialog, "message", visit);
        service.at(demo.destination).setConnectedPrograms({});
        chooseFile(demo, folder, "tormelk_far_too_large.bin", 60000);
        showMessage(dialog, "message-warning", visit);
        press(dialog, Qt::Key_Escape);
    });
    chooseFile(demo, folder, "tormelk_2.bin", 40000);
    showUpload(demo, visit);
    showCutUpload(demo, service, visit);
    show(demo.simulatorView, "simulator-update", visit);
    demo.editor.firmware.lastStepDone = 5;
    openFirmware(demo, [&](QDialog& dialog) {
        show(dialog, "firmware-done", visit);
        press(dialog, Qt::Key_Escape);
    });
}

void showEmptyDeviceDialog(app::Demo& demo, const Visit& visit) {
    support::ScriptedMidiService empty;
    midi::ZQMIDIProcess process(empty, demo.editor.notificationCentre);
    devices::seldevChoice choice(process);
    devices::seldev dialog(choice, demo.desktop);
    whenDialogOpens(QStringLiteral("MIDI Devices"), [&visit](QDialog& shown) {
        show(shown, "seldev-empty", visit);
        press(shown, Qt::Key_Escape);
    });
    demo.desktop.runModalForWindow(dialog);
}

/// An editor on another computer than the demo's: its main window and its device dialog.
void showElsewhere(app::Demo& demo, support::ScriptedMidiService& service, const std::string& where,
                   const Visit& visit) {
    app::Editor editor(service, demo.desktop, elsewhere(demo));
    editor.show();
    whenDialogOpens(QStringLiteral("MIDI Devices"), [&](QDialog& dialog) {
        show(dialog, ("seldev-" + where).c_str(), visit);
        press(dialog, Qt::Key_Enter);
    });
    click(find(editor.view, "midiDevices"));
    show(editor.view, ("main-" + where).c_str(), visit);
}

void showWithoutMidi(app::Demo& demo, const Visit& visit) {
    using Obstacle = platform::ServiceState::Obstacle;
    support::ScriptedMidiService service;
    const platform::ServiceState notAllowed{Obstacle::NotAllowed, "sudo usermod -aG audio $USER",
                                            "audio"};
    service.obstruct(notAllowed);
    showElsewhere(demo, service, "not-allowed", visit);
    service.obstruct({Obstacle::NotLoaded, "sudo modprobe snd-seq"});
    showElsewhere(demo, service, "not-loaded", visit);
    service.obstruct({Obstacle::Other, {}, {}, "Too many open files in system"});
    showElsewhere(demo, service, "not-opened", visit);
    demo.simulatorView.setNotice(QStringLiteral("Other programs cannot see this controller. ") +
                                 QString::fromStdString(devices::whyNoMidi(notAllowed) + " " +
                                                        devices::remedyForNoMidi(notAllowed)));
    show(demo.simulatorView, "simulator-not-allowed", visit);
    demo.simulatorView.setNotice(QString());
}

/// Another editor changes this many controls and comes to its end, half a day after all before.
void leaveUnsavedWork(app::Demo& demo, const std::string& place, std::size_t controls) {
    namespace fs = std::filesystem;
    if (fs::exists(place)) {
        for (const auto& file : fs::directory_iterator(place)) {
            fs::last_write_time(file, file.last_write_time() - std::chrono::hours(11));
        }
    }
    support::ScriptedMidiService empty;
    app::Editor editor(empty, demo.desktop, place);
    editor.window.combo_mode.choose(editor::userDefinedMode);
    for (std::size_t tag = 0; tag < controls; ++tag) {
        editor.window.keysOrderedByTag.at(tag).click();
        editor.window.combo_chan.choose(7);
    }
    if (controls % 2 == 0) {
        editor.window.locker.click();
        editor.window.combo_mode.choose(editor::logicMode);
    }
    editor.unsavedWork.end();
}

void showUnsavedWork(app::Demo& demo, const Visit& visit) {
    leaveUnsavedWork(demo, elsewhere(demo), 1);
    support::ScriptedMidiService empty;
    app::Editor editor(empty, demo.desktop, elsewhere(demo));
    editor.show();
    show(editor.view, "main-unsaved-work", visit);
    editor.unsavedWork.discard(editor.unsavedWork.offers().front());
}

/// The list of what can be brought back opens where there is one.
void showFileMenu(QMainWindow& window, const char* name, const Visit& visit) {
    QAction* action = window.menuBar()->actions().front();
    window.menuBar()->setActiveAction(action);
    QMenu& file = *action->menu();
    auto& list = find<QMenu>(window, "listBringBack");
    if (list.menuAction()->isVisible()) {
        file.setActiveAction(list.menuAction());
        list.popup(file.mapToGlobal(file.actionGeometry(list.menuAction()).topRight()));
        list.setActiveAction(list.actions().front());
    }
    QApplication::processEvents();
    visit(window, QString::fromLatin1(name));
    list.close();
    file.close();
    window.menuBar()->setActiveAction(nullptr);
}

void showLongName(app::Demo& demo, const Visit& visit) {
    support::ScriptedMidiService service;
    service.addSource(std::string(127, 'W'));
    service.addDestination(std::string(127, 'W'));
    showElsewhere(demo, service, "long-name", visit);
}

}  // namespace

void forEveryWindow(const Visit& visit) {
    support::ScriptedMidiService service;
    app::Demo demo(service);
    parkMouse();
    demo.show();
    (void)QTest::qWaitForWindowActive(&demo.editor.view);
    show(demo.simulatorView, "simulator-start", visit);
    showMain(demo, visit);
    showDeviceDialog(demo, visit);
    showAlert(demo, visit);
    showMainAfterSend(demo, visit);
    show(demo.simulatorView, "simulator", visit);
    showPadEditor(demo, visit);
    showAbout(demo, visit);
    showFirmware(demo, service, visit);
    showEmptyDeviceDialog(demo, visit);
    showMainWithoutOutput(demo, visit);
    showWithoutMidi(demo, visit);
    showUnsavedWork(demo, visit);
    showLongName(demo, visit);
}

void forEveryMenu(const Visit& visit) {
    support::ScriptedMidiService service;
    app::Demo demo(service);
    parkMouse();
    demo.show();
    QMainWindow& window = demo.editor.view;
    (void)QTest::qWaitForWindowActive(&demo.editor.view);
    const std::string place = demo.folder.filePath(QStringLiteral("unsaved")).toStdString();
    showFileMenu(window, "menu-file", visit);
    leaveUnsavedWork(demo, place, 1);
    showFileMenu(window, "menu-unsaved-work", visit);
    for (const std::size_t controls : {12U, 27U}) {
        leaveUnsavedWork(demo, place, controls);
    }
    showFileMenu(window, "menu-unsaved-works", visit);
}

}  // namespace tests
