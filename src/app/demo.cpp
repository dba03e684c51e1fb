// The editor beside a simulated Tormelk, to be tried out by a person, or by itself:
//
//     tormelk-demo
//     tormelk-demo --check [--screenshot FILE]

#include <QTimer>
#include <chrono>
#include <cstdio>
#include <optional>

#include "app/Demo.h"
#include "app/DemoCheck.h"
#include "app/ProgramEnd.h"
#include "app/Watchdog.h"
#include "app/identity.h"
#include "app/openDisplay.h"

namespace {

struct Options {
    bool check = false;
    QString screenshot;
};

std::optional<Options> read(const QStringList& arguments) {
    Options options;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("--check")) {
            options.check = true;
        } else if (arguments[i] == QLatin1String("--screenshot") && i + 1 < arguments.size()) {
            options.screenshot = arguments[++i];
        } else {
            return std::nullopt;
        }
    }
    const bool sensible = options.check || options.screenshot.isEmpty();
    return sensible ? std::optional(options) : std::nullopt;
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
    const std::optional<Options> options = read(QApplication::arguments());
    if (!options) {
        std::fputs("Usage: tormelk-demo [--check [--screenshot FILE]]\n", stderr);
        return 2;
    }
    app::ProgramEnd programEnd;
    app::Demo demo([&programEnd](int status) { programEnd.end(status); });
    demo.desktop.onSleep([&programEnd] { programEnd.attend(); });
    demo.show();
    if (options->check) {
        QTimer::singleShot(0, &demo.editor.view, [&demo, &options] {
            QApplication::exit(check(demo, options->screenshot) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
