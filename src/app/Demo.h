#pragma once

#include <QTemporaryDir>

#include "app/Editor.h"
#include "platform/software/SoftwareMidiService.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/windows/SimulatorView.h"
#include "simulator/SimulatedController.h"

namespace app {

/// The editor beside a simulated Tormelk, in one process and without hardware: what is sent to the
/// port "Tormelk MIDI 1" arrives there. A second port, to which nothing listens, makes the choice
/// of the port a real one.
struct Demo {
    /// Over a service that has no devices yet, and must outlive it. Without `endProcess` the
    /// process is ended for real.
    explicit Demo(platform::software::SoftwareMidiService& service,
                  qt::desktop::QtDesktop::EndProcess endProcess = nullptr);

    /// Side by side where the screen has space for it.
    void show();

    /// What it has put on disk goes, for a process that ends at once. Nobody misses what was done
    /// to a controller that is simulated.
    void removeFiles() { folder.remove(); }

    platform::software::SoftwareMidiService& midiService;
    platform::software::Device& otherDevice;
    platform::software::Device& device;
    platform::software::Source& source;
    platform::software::Destination& destination;
    simulator::SimulatedController tormelk;
    qt::desktop::QtDesktop desktop;
    qt::windows::SimulatorView simulatorView;
    QTemporaryDir folder;
    Editor editor;

private:
    /// Waits until the desktop has given the windows their frames, and then places them.
    class Placing final : public QObject {
    public:
        explicit Placing(Demo& demo) : demo_(demo) {}
        bool eventFilter(QObject* watched, QEvent* event) override;

    private:
        Demo& demo_;
        bool isDone_ = false;
    };

    void placeSideBySide();

    Placing placing_{*this};
};

}  // namespace app
