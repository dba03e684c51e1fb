#pragma once

#include <string>

#include "app/Inbox.h"
#include "midi/ZQMIDIProcess.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "platform/MidiService.h"
#include "platform/NotificationCentre.h"
#include "qt/MidiDispatcher.h"
#include "simulator/SimulatedController.h"

namespace app {

/// A simulated Tormelk on this computer's MIDI service: other programs see its source and its
/// destination under the name of a real one's port, and what they send there arrives. The service
/// must outlive it.
struct Simulator {
    explicit Simulator(platform::MidiService& midiService);
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;
    ~Simulator();

    /// Whether others can see it: there is a MIDI service to be had.
    [[nodiscard]] bool isPublished() const { return destination.isOnline(); }

    simulator::SimulatedController tormelk;
    platform::NotificationCentre notificationCentre;
    midi::ZQMIDIProcess midiProcess;
    midi::ZQMIDIVirtualSource source;
    midi::ZQMIDIVirtualDestination destination;
    Inbox inbox;
    qt::MidiDispatcher midiDispatcher;
};

}  // namespace app
