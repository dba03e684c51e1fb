// The program's other windows, and how the main window ends it.

#include "editor/mainController.h"
#include "firmware/firm.h"
#include "sending/sendReport.h"

namespace editor {

void mainController::exit() {
    desktop_.exit(0);
}

void mainController::windowWillClose() {
    desktop_.exit(0);
}

bool mainController::applicationShouldTerminateAfterLastWindowClosed() {
    window_.window.makeKeyAndOrderFront();
    return false;
}

void mainController::about() {
    if (!ab_) {
        ab_ = std::make_unique<editor::about>();
    }
    desktop_.showWindow(*ab_);
}

void mainController::midiSelect() {
    devices::seldev dialog(devices_, desktop_);
    const midi::ZQMIDIRealDestination* before = devices_.OutDevice();
    desktop_.runModalForWindow(dialog);
    showOutput();
    const midi::ZQMIDIRealDestination* output = devices_.OutDevice();
    if (output != nullptr && output != before) {
        report("Output: " + output->displayName());
    }
    actionEnded();
}

void mainController::firmware() {
    firmware::firm dialog(firmware_, devices_, desktop_);
    transfer([&] { desktop_.runModalForWindow(dialog); });
    showOutput();
    if (sent_ && !sent_->receipt().isSettled && sent_->look().isSettled) {
        // It sent something there before the Send was settled.
        report(sending::reportSend(sent_->receipt()));
    }
    actionEnded();
}

}  // namespace editor
