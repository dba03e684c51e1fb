// The demo, left to check itself:
//
//     tormelk-demo-check [--screenshot FILE]
//
// Ends with status 0 if every byte arrived as it should, with 1 if one did not.

#include <chrono>
#include <cstdio>
#include <optional>

#include "app/Demo.h"
#include "app/demo/DemoCheck.h"
#include "app/demo/Watchdog.h"
#include "app/identity.h"
#include "app/openDisplay.h"

namespace {

/// Where the picture goes to, empty for none; nothing where the arguments make no sense.
std::optional<QString> readScreenshot(const QStringList& arguments) {
    if (arguments.size() == 1) {
        return QString();
    }
    const bool sensible = arguments.size() == 3 && arguments[1] == QLatin1String("--screenshot") &&
                          arguments[2] != QString();
    return sensible ? std::optional(arguments[2]) : std::nullopt;
}

bool check(app::Demo& demo, const QString& screenshot) {
    const app::Watchdog watchdog(std::chrono::seconds(90));
    app::DemoCheck demoCheck(demo);
    const bool right = demoCheck.run();
    if (!screenshot.isEmpty() && !demoCheck.saveScreenshot(screenshot)) {
        std::printf("WRONG: the picture could not be written to %s\n", qUtf8Printable(screenshot));
        return false;
    }
    return right;
}

}  // namespace

int main(int count, char** arguments) {
    const auto application = app::openDisplay(count, arguments);
    app::setIdentity();
    const std::optional<QString> screenshot = readScreenshot(QApplication::arguments());
    if (!screenshot) {
        std::fputs("Usage: tormelk-demo-check [--screenshot FILE]\n", stderr);
        return 2;
    }
    platform::software::SoftwareMidiService midiService;
    app::Demo demo(midiService);
    demo.show();
    return check(demo, *screenshot) ? 0 : 1;
}
