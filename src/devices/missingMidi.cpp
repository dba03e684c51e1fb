#include "devices/missingMidi.h"

namespace devices {

using Obstacle = platform::ServiceState::Obstacle;

std::string whyNoMidi(const platform::ServiceState& midi) {
    switch (midi.obstacle) {
        case Obstacle::None:
            break;
        case Obstacle::NotAllowed:
            return "This program is not allowed to use the computer's MIDI.";
        case Obstacle::NotLoaded:
            return "The computer's MIDI sequencer is not loaded.";
        case Obstacle::Other:
            return "The computer's MIDI sequencer cannot be opened: " + midi.reason + ".";
    }
    return {};
}

std::string remedyForNoMidi(const platform::ServiceState& midi) {
    switch (midi.obstacle) {
        case Obstacle::None:
        case Obstacle::Other:
            break;
        case Obstacle::NotAllowed:
            return "Members of the group \"" + midi.group +
                   "\" are allowed to. To become one, run this in a terminal, then log out and log "
                   "in again:\n" +
                   midi.remedy;
        case Obstacle::NotLoaded:
            return "To load it, run this in a terminal; it is noticed here by itself:\n" +
                   midi.remedy;
    }
    return {};
}

}  // namespace devices
