#include "qt/EveryWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>

#include "app/Demo.h"
#include "app/Robot.h"
#include "shell/message.h"

namespace tests {

namespace {

using app::robot::choose;
using app::robot::click;
using app::robot::find;
using app::robot::press;
using app::robot::whenDialogOpens;
using Visit = std::function<void(QWidget& window, const QString& name)>;

/// Lays the window out and shows it.
void show(QWidget& window, const char* name, const Visit& visit) {
    (void)QTest::qWaitForWindowExposed(&window);
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
    whenDialogOpens(QStringLiteral("Tormelk Wyro"), [&visit](QDialog& dialog) {
        show(dialog, "alert-question", visit);
        press(dialog, Qt::Key_Escape);
    });
    demo.desktop.runAlertPanel({"Tormelk Wyro", "Changes are lost. Go on?", "OK", "Cancel"});
}

void showPadEditor(app::Demo& demo, const Visit& visit) {
    whenDialogOpens(QStringLiteral("Pad Editor"), [&visit](QDialog& dialog) {
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

void showMessage(app::Demo& demo, const Visit& visit) {
    std::uint8_t answer = 0;
    shell::message message(demo.desktop, answer);
    whenDialogOpens(QStringLiteral("Firmware Update"), [&visit](QDialog& dialog) {
        show(dialog, "message", visit);
        press(dialog, Qt::Key_Escape);
    });
    demo.desktop.runModalForWindow(message);
}

void showEmptyDeviceDialog(app::Demo& demo, const Visit& visit) {
    platform::software::SoftwareMidiService empty;
    midi::ZQMIDIProcess process(empty, demo.editor.notificationCentre);
    devices::seldevChoice choice(process);
    devices::seldev dialog(choice, demo.desktop);
    whenDialogOpens(QStringLiteral("MIDI Devices"), [&visit](QDialog& shown) {
        show(shown, "seldev-empty", visit);
        press(shown, Qt::Key_Escape);
    });
    demo.desktop.runModalForWindow(dialog);
}

}  // namespace

void forEveryWindow(const Visit& visit) {
    app::Demo demo;
    demo.show();
    (void)QTest::qWaitForWindowActive(&demo.editor.view);
    show(demo.simulatorView, "simulator-start", visit);
    showMain(demo, visit);
    showDeviceDialog(demo, visit);
    showAlert(demo, visit);
    show(demo.simulatorView, "simulator", visit);
    showPadEditor(demo, visit);
    showAbout(demo, visit);
    showMessage(demo, visit);
    showEmptyDeviceDialog(demo, visit);
}

}  // namespace tests
