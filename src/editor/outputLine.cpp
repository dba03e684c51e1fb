// Which output a Send goes to, and whether it is there.

#include "editor/mainController.h"

namespace editor {

namespace {

constexpr std::string_view noneFound =
    "No MIDI output found. Connect the controller, or start the simulator.";
constexpr std::string_view noneChosen =
    "Choose the controller's MIDI output under MIDI Devices, then Send.";

}  // namespace

void mainController::followOutput() {
    setupChanges_ = devices_.process().notificationCentre().addObserver(
        midi::ZQMIDISetupChanged, [this](const void*) { showOutput(); });
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
    const bool anyOnline =
        !devices_.process().sharedInstance().realDestinationsOnlineOrInUse().empty();
    window_.outputLamp.setState(0);
    window_.output.setStringValue(anyOnline ? "No output chosen" : "No output found");
    giveHint(anyOnline ? noneChosen : noneFound);
}

/// What to do next, in the status line until something has been done.
void mainController::giveHint(std::string_view hint) {
    const std::string& shown = window_.status.stringValue();
    if (shown.empty() || shown == noneFound || shown == noneChosen) {
        window_.status.setStringValue(hint);
    }
}

void mainController::report(std::string_view text) {
    window_.status.setStringValue(text);
}

}  // namespace editor
