// How soon a person sees what they did, in the real main window.

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "Stopwatch.h"
#include "app/Editor.h"
#include "app/identity.h"
#include "config/control.h"
#include "config/presetText.h"
#include "platform/software/SoftwareMidiService.h"
#include "support/windows/hands.h"

namespace {

using Clock = std::chrono::steady_clock;

double microsecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

/// Everything that is due is painted and handed to the display.
void paintAll() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

/// A User Defined preset in which every assignment differs from those of another seed.
std::string somePreset(const config::Image& like, unsigned seed) {
    config::Image image = like;
    std::mt19937 random(seed);
    for (int layer = 0; layer < config::layerCount; ++layer) {
        for (int control = 0; control < config::buttonCount; ++control) {
            config::setChannel(image, layer, control, static_cast<int>(random() % 16));
            config::setNumber(image, layer, control, static_cast<int>(random() % 128));
        }
    }
    config::setTrailerOfEveryLayer(image, config::dawModeOffset, editor::userDefinedMode);
    return config::presetText(image);
}

/// From Enter in the file panel to the preset on the screen.
double loadOnce(app::Editor& editor, const QString& path) {
    QTest::qWait(150);  // as a person would: the panel before has gone for good
    Clock::time_point start;
    support::hands::whenDialogOpens(QStringLiteral("Open"), [&](QDialog& panel) {
        auto& name = support::hands::find<QLineEdit>(panel, "fileNameEdit");
        name.setText(path);
        start = Clock::now();
        support::hands::press(name, Qt::Key_Enter);
    });
    editor.controller.loadFile();
    paintAll();
    return microsecondsSince(start);
}

void benchLoading(app::Editor& editor) {
    const QTemporaryDir folder;
    const QStringList paths = {folder.filePath(QStringLiteral("a.Tormelk")),
                               folder.filePath(QStringLiteral("b.Tormelk"))};
    for (int i = 0; i < 2; ++i) {
        std::ofstream(paths[i].toStdString())
            << somePreset(editor.state.sysData, static_cast<unsigned>(i));
    }
    std::printf("Load, from Enter in the file panel to everything painted\n");
    constexpr int runs = 100;
    constexpr double goal = 8'000;
    std::vector<double> times;
    times.reserve(runs);
    loadOnce(editor, paths[0]);
    for (int run = 0; run < runs; ++run) {
        times.push_back(loadOnce(editor, paths[(run + 1) % 2]));
    }
    const bench::Timing timing = bench::timingOf(std::move(times));
    bench::printWithin("Load: the panel goes, the file is read, the window shows it", timing, goal);
    std::printf("\n");
}

/// From a click on what `targets` names, in turn, to everything painted.
void benchClicks(app::Editor& editor, const std::string& what,
                 const std::vector<QString>& targets) {
    constexpr int runs = 1000;
    constexpr double goal = 8'000;
    std::vector<QWidget*> widgets;
    widgets.reserve(targets.size());
    for (const QString& target : targets) {
        widgets.push_back(&support::hands::find(editor.view, target.toLatin1().constData()));
        support::hands::click(*widgets.back());
        paintAll();
    }
    std::vector<double> times;
    times.reserve(runs);
    for (std::size_t run = 0; run < runs; ++run) {
        const auto start = Clock::now();
        support::hands::click(*widgets[run % widgets.size()]);
        paintAll();
        times.push_back(microsecondsSince(start));
    }
    const bench::Timing timing = bench::timingOf(std::move(times));
    bench::printWithin(what, timing, goal);
    std::printf("\n");
}

void benchClicking(app::Editor& editor) {
    std::printf("Click, to everything painted, with all 74 faces shown\n");
    std::vector<QString> controls;
    controls.reserve(config::buttonCount);
    for (int tag = 0; tag < config::buttonCount; ++tag) {
        controls.push_back(QStringLiteral("encoder%1").arg(tag));
    }
    benchClicks(editor, "one control after another", controls);
    benchClicks(editor, "mode layers, whose faces all differ",
                {QStringLiteral("moLa1"), QStringLiteral("moLa3")});
}

/// From the command to everything painted, there and back again.
void benchUndoing(app::Editor& editor) {
    constexpr int runs = 1000;
    constexpr double goal = 8'000;
    auto* undo = editor.view.findChild<QAction*>(QStringLiteral("actionUndo"));
    auto* redo = editor.view.findChild<QAction*>(QStringLiteral("actionRedo"));
    std::printf("Undo and redo, to everything painted, with all 74 faces shown\n");
    const auto timed = [&](const char* what, int steps) {
        std::vector<double> times;
        times.reserve(runs);
        for (int run = 0; run < runs; ++run) {
            const bool back = run / steps % 2 == 0;
            const auto start = Clock::now();
            (back ? undo : redo)->trigger();
            paintAll();
            times.push_back(microsecondsSince(start));
        }
        const bench::Timing timing = bench::timingOf(std::move(times));
        bench::printWithin(what, timing, goal);
        std::printf("\n");
    };
    timed("a preset over another, of which everything differs", 1);
    for (const char* layer : {"moLa1", "moLa3"}) {
        support::hands::click(support::hands::find(editor.view, layer));
        support::hands::click(support::hands::find(editor.view, "encoder9"));
        editor.window.combo_chan.choose((editor.window.combo_chan.indexOfSelectedItem() + 5) % 16);
    }
    timed("a channel in one layer, then in another", 2);
    editor.window.combo_mode.choose(editor::logicMode);
    timed("a DAW mode", 1);
}

double residentMebibytes() {
    constexpr double kibibytesInAMebibyte = 1024;
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kibibytes = 0;
        if (word == "VmRSS:" && status >> kibibytes) {
            return kibibytes / kibibytesInAMebibyte;
        }
    }
    return 0;
}

/// What ten thousand of the largest steps there are leave in memory.
void benchHistory(app::Editor& editor) {
    constexpr int steps = 10'000;
    constexpr double goal = 64;
    const double before = residentMebibytes();
    for (int step = 0; step < steps; ++step) {
        editor.window.combo_mode.choose(step % 2 == 0 ? editor::logicMode
                                                      : editor::userDefinedMode);
    }
    const double grown = residentMebibytes() - before;
    std::printf("Memory of %d steps, each a DAW mode\n  %.1f MiB\n", steps, grown);
    bench::printGoal("10,000 steps in memory", "64 MiB", grown / goal);
    std::printf("\n");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const QApplication application(argumentCount, arguments);
    app::setIdentity();
    platform::software::SoftwareMidiService midiService;
    qt::desktop::QtDesktop desktop([](int status) { std::exit(status); });
    const QTemporaryDir folder;
    app::Editor editor(midiService, desktop,
                       folder.filePath(QStringLiteral("unsaved")).toStdString());
    editor.window.combo_mode.choose(editor::userDefinedMode);
    editor.show();
    paintAll();
    benchLoading(editor);
    benchClicking(editor);
    benchUndoing(editor);
    benchHistory(editor);
    return 0;
}
