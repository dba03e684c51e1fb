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
#include "qt/windows/SimulatorView.h"

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

/// Says on the terminal whether others can see it.
void tell(const app::Simulator& simulator) {
    if (simulator.isPublished()) {
        std::puts("ready: Tormelk MIDI 1");
        std::fflush(stdout);
    } else {
        std::fprintf(stderr, "tormelk-simulator: %s\n", simulator.trouble().c_str());
    }
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
    tell(simulator);
    if (inWindow) {
        qt::windows::SimulatorView view(simulator.tormelk);
        view.setNotice(QString::fromStdString(simulator.trouble()));
        simulator.onChange = [&] {
            tell(simulator);
            view.setNotice(QString::fromStdString(simulator.trouble()));
        };
        view.show();
        programEnd.end(QCoreApplication::exec());
    }
    if (!simulator.isPublished()) {
        return 1;
    }
    const app::TerminalReport report(simulator.tormelk);
    programEnd.end(QCoreApplication::exec());
}
