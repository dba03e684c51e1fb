// The editor beside a simulated Tormelk, to be tried out by a person.

#include <cstdio>

#include "app/Demo.h"
#include "app/ProgramEnd.h"
#include "app/identity.h"
#include "app/openDisplay.h"

int main(int count, char** arguments) {
    const auto application = app::openDisplay(count, arguments);
    app::setIdentity();
    if (QApplication::arguments().size() > 1) {
        std::fputs("Usage: tormelk-demo\n", stderr);
        return 2;
    }
    app::ProgramEnd programEnd;
    platform::software::SoftwareMidiService midiService;
    app::Demo demo(midiService, [&programEnd](int status) { programEnd.end(status); });
    programEnd.before([&demo] { demo.removeFiles(); });
    demo.desktop.onSleep([&programEnd] { programEnd.attend(); });
    demo.show();
    return QApplication::exec();
}
