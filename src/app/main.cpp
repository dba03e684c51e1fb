// The program: the editor on this computer's MIDI service.

#include <QApplication>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "app/Editor.h"
#include "app/identity.h"
#include "platform/alsa/AlsaMidiService.h"
#include "qt/QtDesktop.h"

int main(int, char** arguments) {
    // A save that meets a limit on file sizes fails and says so; unheeded, the signal would end us.
    std::signal(SIGXFSZ, SIG_IGN);
    int count = 1;  // its name; neither the program nor Qt reads more of the command line
    const QApplication application(count, arguments);
    app::setIdentity();
    platform::alsa::AlsaMidiService midiService("Tormelk Wyro");
    qt::QtDesktop desktop([&midiService](int status) {
        midiService.end();
        std::fflush(nullptr);
        std::_Exit(status);
    });
    app::Editor editor(midiService, desktop);
    editor.show();
    return QApplication::exec();
}
