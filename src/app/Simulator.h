#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/Inbox.h"
#include "midi/ZQMIDIProcess.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "platform/MidiService.h"
#include "platform/NotificationCentre.h"
#include "qt/desktop/MidiDispatcher.h"
#include "simulator/SimulatedController.h"

namespace app {

/// A simulated Tormelk on this computer's MIDI service: other programs see its source and its
/// destination under the name of a real one's port, and what they send there arrives. Where there
/// is no service yet, that begins when one comes. The service must outlive it.
class Simulator {
public:
    explicit Simulator(platform::MidiService& midiService);
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;
    ~Simulator();

    /// Whether others can see it: there is a MIDI service to be had.
    [[nodiscard]] bool isPublished() const { return destination_ && destination_->isOnline(); }
    /// Why others cannot see it, and what can be done; empty while they can.
    [[nodiscard]] std::string trouble() const;
    /// Runs when either of them has become another.
    std::function<void()> onChange;

    simulator::SimulatedController tormelk;

private:
    void publish();
    void follow();

    platform::MidiService& midiService_;
    platform::NotificationCentre notificationCentre_;
    midi::ZQMIDIProcess midiProcess_;
    std::optional<midi::ZQMIDIVirtualSource> source_;
    std::optional<midi::ZQMIDIVirtualDestination> destination_;
    Inbox inbox_;
    platform::NotificationCentre::Registration stateChanges_;
    qt::desktop::MidiDispatcher midiDispatcher_;
};

}  // namespace app
