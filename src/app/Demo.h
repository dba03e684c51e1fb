#pragma once

#include "app/Editor.h"
#include "platform/software/SoftwareMidiService.h"
#include "qt/QtDesktop.h"
#include "qt/SimulatorView.h"
#include "simulator/SimulatedController.h"

namespace app {

/// The editor beside a simulated Tormelk, in one process and without hardware: what is sent to the
/// port "Tormelk MIDI 1" arrives there. A second port, to which nothing listens, makes the choice
/// of the port a real one.
struct Demo {
    Demo();

    void show();

    platform::software::SoftwareMidiService midiService;
    platform::software::Device& otherDevice;
    platform::software::Device& device;
    platform::software::Source& source;
    platform::software::Destination& destination;
    simulator::SimulatedController tormelk;
    qt::QtDesktop desktop;
    qt::SimulatorView simulatorView;
    Editor editor;
};

}  // namespace app
