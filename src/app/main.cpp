// The program: the editor on this computer's MIDI service.

#include <QApplication>

#include "app/Editor.h"
#include "app/identity.h"
#include "platform/AbsentMidiService.h"
#include "qt/QtDesktop.h"

int main(int, char** arguments) {
    int count = 1;  // its name; neither the program nor Qt reads more of the command line
    const QApplication application(count, arguments);
    app::setIdentity();
    platform::AbsentMidiService midiService;
    qt::QtDesktop desktop;
    app::Editor editor(midiService, desktop);
    editor.show();
    return QApplication::exec();
}
