// The program: the editor on this computer's MIDI service.

#include <csignal>

#include "app/Editor.h"
#include "app/ProgramEnd.h"
#include "app/identity.h"
#include "app/openDisplay.h"
#include "platform/alsa/AlsaMidiService.h"
#include "qt/desktop/QtDesktop.h"
#include "rescue/place.h"

int main(int, char** arguments) {
    // A save that meets a limit on file sizes fails and says so; unheeded, the signal would end us.
    std::signal(SIGXFSZ, SIG_IGN);
    int count = 1;  // its name; neither the program nor Qt reads more of the command line
    [[maybe_unused]] const auto application = app::openDisplay(count, arguments);
    app::setIdentity();
    app::ProgramEnd programEnd;
    platform::alsa::AlsaMidiService midiService("Tormelk Wyro");
    programEnd.before([&midiService] { midiService.end(); });
    qt::desktop::QtDesktop desktop([&programEnd](int status) { programEnd.end(status); });
    desktop.onSleep([&programEnd] { programEnd.attend(); });
    app::Editor editor(midiService, desktop, rescue::place());
    programEnd.before([&editor] { editor.unsavedWork.end(); });
    editor.show();
    programEnd.end(QApplication::exec());
}
