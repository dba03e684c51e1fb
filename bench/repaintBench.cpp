// How soon the drawn controller shows what changed on it, in the real main window: at 1x in the
// size it opens with, and at 2x on a screen of 3840x2160.
//
//     repaint-bench
//     repaint-bench --usual | --large     (what it runs itself as)
//
// What a face shows anew is something that has not been painted for hundreds of repaints, so that
// a picture kept from before is of no use; where it is one that was shown just before, the row
// says so.

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "Stopwatch.h"
#include "app/Editor.h"
#include "app/identity.h"
#include "config/control.h"
#include "platform/software/SoftwareMidiService.h"
#include "support/windows/hands.h"

namespace {

constexpr int runs = 500;
constexpr double goalForOne = 1'000;  // microseconds

void paintAll() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

/// Assignments one after another, none of which comes again before all the others did.
class Assignments {
public:
    void setNext(config::Image& image, int layer, int control) {
        constexpr unsigned count = 128U * 16 * 4 * 2;  // numbers, channels, kinds, triggers
        constexpr unsigned stride = 5003;              // odd: it leads to each of them
        constexpr int kinds[] = {0x09, 0x0B, 0x0C, 0x0E, 0x49, 0x4B, 0x4C, 0x4E};
        unsigned rest = next_++ * stride % count;
        const auto take = [&rest](unsigned values) {
            const unsigned value = rest % values;
            rest /= values;
            return static_cast<int>(value);
        };
        config::setNumber(image, layer, control, take(128));
        config::setChannel(image, layer, control, take(16));
        config::setMode(image, layer, control, kinds[take(8)]);
    }
    void setNextInLayer(config::Image& image, int layer) {
        for (int control = 0; control < config::buttonCount; ++control) {
            setNext(image, layer, control);
        }
    }

private:
    unsigned next_ = 0;
};

/// Times `act` and the painting of what it changed, after `prepare` each time.
template <typename Prepare, typename Act>
void benchPainting(const std::string& what, double goal, Prepare prepare, Act act) {
    std::vector<double> times;
    times.reserve(runs);
    for (int run = 0; run < runs; ++run) {
        prepare(run);
        paintAll();
        const auto start = std::chrono::steady_clock::now();
        act(run);
        paintAll();
        times.push_back(
            std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start)
                .count());
    }
    bench::printWithin(what, bench::timingOf(std::move(times)), goal);
}

void benchFaces(app::Editor& editor, double goalForAll) {
    config::Image& image = editor.state.sysData;
    Assignments assignments;
    const auto nothing = [](int) {};
    const auto show = [&](int) { editor.window.actionEnded(); };

    benchPainting(
        "all 74 faces, none of them painted before", goalForAll,
        [&](int) {
            for (int layer = 0; layer < config::layerCount; ++layer) {
                assignments.setNextInLayer(image, layer);
            }
        },
        show);

    std::vector<config::Image> images(2, image);
    assignments.setNextInLayer(images[1], editor.state.layers.layrData);
    assignments.setNextInLayer(images[1], editor.state.layers.m_paLa);
    benchPainting(
        "all 74 faces, two states in turn", goalForAll,
        [&](int run) { image = images[static_cast<std::size_t>(run % 2)]; }, show);

    const auto layerButton = [&editor](int run) -> QWidget& {
        return support::hands::find(editor.view, run % 2 == 0 ? "moLa3" : "moLa1");
    };
    benchPainting(
        "a click on a mode layer, never shown before", goalForAll,
        [&](int run) { assignments.setNextInLayer(image, run % 2 == 0 ? 2 : 0); },
        [&](int run) { support::hands::click(layerButton(run)); });
    benchPainting("a click on a mode layer, two in turn", goalForAll, nothing,
                  [&](int run) { support::hands::click(layerButton(run)); });

    constexpr int someKey = 20;
    benchPainting(
        "one face", goalForOne,
        [&](int) { assignments.setNext(image, editor.state.layers.layrData, someKey); }, show);
}

int run(int count, char** arguments, bool large) {
    if (large) {
        qputenv("QT_SCALE_FACTOR", "2");  // read when the application is made
    }
    const QApplication application(count, arguments);
    app::setIdentity();
    platform::software::SoftwareMidiService midiService;
    qt::desktop::QtDesktop desktop([](int status) { std::exit(status); });
    const QTemporaryDir folder;
    app::Editor editor(midiService, desktop,
                       folder.filePath(QStringLiteral("unsaved")).toStdString());
    editor.window.combo_mode.choose(editor::userDefinedMode);
    if (large) {
        editor.view.resize(1920, 1080);
    }
    editor.show();
    support::hands::click(support::hands::find(editor.view, "moLa1"));
    paintAll();
    const QSize size = editor.view.size() * editor.view.devicePixelRatioF();
    std::printf("Repaint at %.0fx, in a window of %dx%d pixels\n", editor.view.devicePixelRatioF(),
                size.width(), size.height());
    benchFaces(editor, large ? 8'000 : 3'000);
    std::printf("\n");
    return EXIT_SUCCESS;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string role = count > 1 ? arguments[1] : "";
    if (role == "--usual" || role == "--large") {
        return run(count, arguments, role == "--large");
    }
    for (const char* each : {"--usual", "--large"}) {
        const int status =
            QProcess::execute(QString::fromLocal8Bit(arguments[0]), {QString::fromLatin1(each)});
        if (status != 0) {
            std::fprintf(stderr, "%s %s failed\n", arguments[0], each);
            return EXIT_FAILURE;
        }
    }
    return EXIT_SUCCESS;
}
