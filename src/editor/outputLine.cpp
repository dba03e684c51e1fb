// Which output a Send goes to, and whether it is there.

#include "devices/missingMidi.h"
#include "editor/mainController.h"

namespace editor {

namespace {

constexpr std::string_view noneFound =
    "No MIDI output found. Connect the controller, or start the simulator.";
constexpr std::string_view noneChosen =
    "Choose the controller's MIDI output under MIDI Devices, then Send.";

/// What to do while no output is chosen.
std::string hintFor(const platform::ServiceState& midi) {
    if (const std::string why = devices::whyNoMidi(midi); !why.empty()) {
        const bool isKnown = !devices::remedyForNoMidi(midi).empty();
        return why + (isKnown ? " MIDI Devices tells what to do." : " MIDI Devices tries again.");
    }
    return std::string(midi.hasDestination ? noneChosen : noneFound);
}

}  // namespace

void mainController::followOutput() {
    setupChanges_ = devices_.process().notificationCentre().addObserver(
        midi::ZQMIDISetupChanged, [this](const void*) { showOutput(); });
    // Before the first device dialog there is no manager that would tell.
    stateChanges_ = devices_.process().service().stateChanges().addObserver(
        platform::MIDIServiceStateChanged, [this](const void*) { showOutput(); });
    showOutput();
}

void mainController::showOutput() {
    const midi::ZQMIDIRealDestination* output = devices_.OutDevice();
    if (output != nullptr) {
        window_.outputLamp.setState(output->isOnline() ? 1 : 0);
        window_.output.setStringValue(output->displayName());
        giveHint({});
        return;
    }
    const platform::ServiceState midi = devices_.process().service().state();
    window_.outputLamp.setState(0);
    window_.output.setStringValue(midi.hasDestination ? "No output chosen" : "No output found");
    giveHint(hintFor(midi));
}

/// What to do next, in the status line until something has been done.
void mainController::giveHint(std::string_view hint) {
    const std::string& shown = window_.status.stringValue();
    if (shown.empty() || shown == hint_) {
        hint_ = hint;
        window_.status.setStringValue(hint);
    }
}

void mainController::report(std::string_view text) {
    window_.status.setStringValue(text);
}

}  // namespace editor
