// A Tormelk in software for any program that speaks MIDI: it appears as the port "Tormelk MIDI 1",
// and shows in a window what it was sent; where there is no display, on the terminal.

#include <QApplication>
#include <QCoreApplication>
#include <cstdio>
#include <memory>

#include "app/ProgramEnd.h"
#include "app/Simulator.h"
#include "app/TerminalReport.h"
#include "app/openDisplay.h"
#include "platform/alsa/AlsaMidiService.h"
#include "qt/SimulatorView.h"

namespace {

/// Whether a window can be shown, on a display or where Qt was told to show it.
bool hasDisplay() {
    for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return true;
        }
    }
    return false;
}

}  // namespace

int main(int, char** arguments) {
    int count = 1;  // it reads no command line
    const bool inWindow = hasDisplay();
    std::unique_ptr<QCoreApplication> application;
    if (inWindow) {
        application = app::openDisplay(count, arguments);
    } else {
        application = std::make_unique<QCoreApplication>(count, arguments);
    }
    QCoreApplication::setApplicationName(QStringLiteral("tormelk-simulator"));
    app::ProgramEnd programEnd;
    platform::alsa::AlsaMidiService midiService("Tormelk Simulator");
    programEnd.before([&midiService] { midiService.end(); });
    app::Simulator simulator(midiService);
    if (!simulator.isPublished()) {
        std::fputs("tormelk-simulator: there is no ALSA sequencer here\n", stderr);
        return 1;
    }
    std::puts("ready: Tormelk MIDI 1");
    std::fflush(stdout);
    if (inWindow) {
        qt::SimulatorView view(simulator.tormelk);
        view.show();
        programEnd.end(QCoreApplication::exec());
    }
    const app::TerminalReport report(simulator.tormelk);
    programEnd.end(QCoreApplication::exec());
}
