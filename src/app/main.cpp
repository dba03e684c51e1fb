// The program: the editor on this computer's MIDI service.

#include <QApplication>
#include <csignal>

#include "app/Editor.h"
#include "app/identity.h"
#include "platform/AbsentMidiService.h"
#include "qt/QtDesktop.h"

int main(int, char** arguments) {
    // A save that meets a limit on file sizes fails and says so; unheeded, the signal would end us.
    std::signal(SIGXFSZ, SIG_IGN);
    int count = 1;  // its name; neither the program nor Qt reads more of the command line
    const QApplication application(count, arguments);
    app::setIdentity();
    platform::AbsentMidiService midiService;
    qt::QtDesktop desktop;
    app::Editor editor(midiService, desktop);
    editor.show();
    return QApplication::exec();
}
