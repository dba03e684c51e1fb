// How long a firmware upload takes beyond the pauses it is made of, and what it costs the
// processor, in the real window with its real pauses.

#include <sys/resource.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>
#include <QTest>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "Stopwatch.h"
#include "app/Editor.h"
#include "app/identity.h"
#include "platform/software/SoftwareMidiService.h"
#include "sending/pace.h"
#include "simulator/SimulatedController.h"
#include "support/windows/hands.h"

namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr std::size_t imageSize = 40000;
constexpr double mostTimesThePauses = 1.02;
constexpr double mostProcessorTime = 3;

double processorTime() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

/// An image, as if its file had been opened, and the device chosen.
void prepare(app::Editor& editor) {
    std::mt19937 random(1);
    firmware::FirmwareState& state = editor.firmware;
    for (std::size_t i = 0; i < imageSize; ++i) {
        state.midi_program_hex.at(i) = static_cast<std::uint8_t>(random());
    }
    state.len = imageSize;
    state.midi_program_hex_len = imageSize;
    state.m_bin_file = 1;
    state.chosenFile = {"tormelk.bin", imageSize, firmware::ChosenFile::Verdict::Accepted};
    state.heldFile = state.chosenFile;
    editor.devices.chosen.g_outDevice =
        editor.midiProcess.sharedInstance().realDestinations().front().get();
    editor.devices.midi_device_open = 1;
}

struct Cost {
    double seconds = 0;
    double processorSeconds = 0;
};

/// Presses Upload and OK; timed from there to the word that it is completed.
Cost upload(app::Editor& editor) {
    Clock::time_point start;
    double processorBefore = 0;
    Cost cost;
    support::hands::whenDialogOpens(QStringLiteral("Firmware Upgrade"), [&](QDialog& window) {
        support::hands::whenDialogOpens(QStringLiteral("Firmware Update"), [&](QDialog& question) {
            support::hands::whenDialogOpens(QStringLiteral("Upload"), [&](QDialog& alert) {
                cost = {Seconds(Clock::now() - start).count(), processorTime() - processorBefore};
                support::hands::press(alert, Qt::Key_Enter);
            });
            start = Clock::now();
            processorBefore = processorTime();
            support::hands::click(support::hands::find(question, "ok"));
        });
        support::hands::click(support::hands::find(window, "upload"));
        support::hands::press(window, Qt::Key_Escape);
    });
    editor.view.findChild<QAction*>(QStringLiteral("actionFirmwareUpdate"))->trigger();
    return cost;
}

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    app::setIdentity();
    platform::software::SoftwareMidiService midiService;
    platform::software::Destination& destination =
        midiService.addDevice("Tormelk").addDestination("Tormelk");
    simulator::SimulatedController tormelk;
    destination.onReceive([&tormelk](const platform::MIDIPacketList& list) {
        platform::forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
            tormelk.receive(bytes);
        });
    });
    qt::desktop::QtDesktop desktop([](int) {});
    const QTemporaryDir folder;
    app::Editor editor(midiService, desktop,
                       folder.filePath(QStringLiteral("unsaved")).toStdString());
    editor.show();
    (void)QTest::qWaitForWindowExposed(&editor.view);
    tormelk.receive(sending::update);
    prepare(editor);

    const double pauses = sending::timeOfUpload(sending::blocksFor(imageSize)).count();
    std::printf("Uploading a firmware of %zu bytes: its pauses alone are %.3f s\n", imageSize,
                pauses);
    std::fflush(stdout);
    const Cost cost = upload(editor);
    if (tormelk.firmware().blocks() != sending::blocksFor(imageSize)) {
        std::printf("  It did NOT ARRIVE whole.\n");
        return EXIT_FAILURE;
    }
    const double timesThePauses = cost.seconds / pauses;
    std::printf("  took %.3f s: %.4f times the pauses, and %.2f s of the processor's time\n",
                cost.seconds, timesThePauses, cost.processorSeconds);
    bench::printGoal("an upload", "at most 1.02 times its pauses",
                     timesThePauses / mostTimesThePauses);
    bench::printGoal("an upload's own processor time", "at most 3 s",
                     cost.processorSeconds / mostProcessorTime);
    return EXIT_SUCCESS;
}
