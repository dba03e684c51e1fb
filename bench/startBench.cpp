// How long the editor takes to start, compared with the smallest program with a window, and how
// often it wakes up while nobody touches it.
//
//     start-bench
//     start-bench --editor | --bare | --idle | --unsaved     (what it runs itself as)

#include <QApplication>
#include <QFile>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "Stopwatch.h"
#include "app/Editor.h"
#include "app/identity.h"
#include "platform/alsa/AlsaMidiService.h"

namespace {

using Clock = std::chrono::steady_clock;

const QString keptIn = QStringLiteral("unsaved");  // in a folder of the process's own

/// Ends the process as soon as the window has been painted and handed to the display.
class EndWhenPainted final : public QObject {
public:
    explicit EndWhenPainted(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QTimer::singleShot(0, this, [] { std::_Exit(0); });
        }
        return QObject::eventFilter(watched, event);
    }
};

int runBare(int count, char** arguments) {
    const QApplication application(count, arguments);
    QPushButton button(QStringLiteral("Close"));
    const EndWhenPainted end(button);
    button.show();
    return QApplication::exec();
}

/// How often the threads of this process were woken up so far, and how long they ran.
struct Activity {
    long wakeUps = 0;
    double milliseconds = 0;
};

Activity activity() {
    Activity all;
    for (const auto& thread : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream status(thread.path() / "status");
        const std::string label = "voluntary_ctxt_switches:";
        for (std::string line; std::getline(status, line);) {
            if (line.rfind(label, 0) == 0) {
                all.wakeUps += std::stol(line.substr(label.size()));
            }
        }
        std::ifstream schedule(thread.path() / "schedstat");
        double nanoseconds = 0;
        schedule >> nanoseconds;
        all.milliseconds += nanoseconds / 1e6;
    }
    return all;
}

/// Tells what happened in ten seconds without a hand on the program.
void watchIdle(QTemporaryDir& folder) {
    using namespace std::chrono_literals;
    QTimer::singleShot(3s, [&folder] {  // it has come to rest
        const Activity before = activity();
        QTimer::singleShot(10s, [before, &folder] {
            const Activity after = activity();
            // The one of this timer's own end is left out.
            std::printf("%ld wake-ups and %.2f ms of work", after.wakeUps - before.wakeUps - 1,
                        after.milliseconds - before.milliseconds);
            const std::filesystem::path kept = folder.filePath(keptIn).toStdString();
            if (std::filesystem::exists(kept)) {
                std::printf(", with unsaved work kept");
            }
            std::fflush(stdout);
            folder.remove();
            std::_Exit(0);
        });
    });
}

int runEditor(int count, char** arguments, const std::string& role) {
    const QApplication application(count, arguments);
    app::setIdentity();
    platform::alsa::AlsaMidiService midiService("Tormelk Wyro");
    qt::desktop::QtDesktop desktop;
    QTemporaryDir folder;
    app::Editor editor(midiService, desktop, folder.filePath(keptIn).toStdString());
    std::unique_ptr<EndWhenPainted> end;
    if (role == "--editor") {
        folder.remove();  // nothing is put there
        end = std::make_unique<EndWhenPainted>(editor.view);
    } else {
        watchIdle(folder);
    }
    editor.show();
    if (role == "--unsaved") {
        editor.window.locker.click();
    }
    return QApplication::exec();
}

/// Runs this program as one of the others; what it printed.
std::string runAs(const char* program, const char* role) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QString::fromLocal8Bit(program), {QString::fromLatin1(role)});
    process.waitForFinished(60'000);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        std::fprintf(stderr, "%s %s failed\n", program, role);
        std::exit(1);
    }
    return process.readAllStandardOutput().toStdString();
}

void compareStarts(const char* program) {
    std::printf("From the start of the process to its first window painted\n");
    constexpr double seconds = 5;
    constexpr double goal = 1.5;
    const std::vector<bench::Timing> timings = bench::timeInTurn(
        {[program] { runAs(program, "--editor"); }, [program] { runAs(program, "--bare"); }},
        seconds);
    bench::print("the editor", timings[0]);
    bench::print("a window with one button", timings[1]);
    const double ratio = timings[0].median / timings[1].median;
    std::printf("    %.2f times as long\n", ratio);
    bench::printGoal("start to the first window painted", "at most 1.5 times the bare window",
                     ratio / goal);
    std::printf("\n");
}

void tellIdle(const char* program) {
    std::printf("Ten seconds without a hand on the program\n");
    for (const char* role : {"--idle", "--unsaved"}) {
        const std::string told = runAs(program, role);
        bench::printGoal(told, "none", told.rfind("0 ", 0) == 0);
    }
    std::printf("\n");
}

}  // namespace

int main(int count, char** arguments) {
    const std::string role = count > 1 ? arguments[1] : "";
    if (role == "--bare") {
        return runBare(count, arguments);
    }
    if (!role.empty()) {
        return runEditor(count, arguments, role);
    }
    compareStarts(arguments[0]);
    tellIdle(arguments[0]);
    return 0;
}
