// Send: the whole image to the controller, and what is known of it in words.

#include "editor/mainController.h"
#include "sending/send.h"
#include "sending/sendReport.h"

namespace editor {

void mainController::transfer(const std::function<void()>& act) {
    if (onTransferBegin) {
        onTransferBegin();
    }
    act();
    if (onTransferEnd) {
        onTransferEnd();
    }
}

void mainController::sendData() {
    const sending::Way way{
        devices_.process().service(), [this] { return devices_.OutDevice(); },
        [this](sending::Seconds pause) { desktop_.sleepForTimeInterval(pause); }};
    transfer([&] { sent_ = sending::send(state_.sysData, way); });
    const sending::Receipt& receipt = sent_->receipt();
    const std::string said = sending::reportSend(receipt);
    report(said);
    if (receipt.trouble == sending::Trouble::NoOutput ||
        receipt.trouble == sending::Trouble::Offline) {
        desktop_.runAlertPanel({"Tormelk Wyro", "Please select MIDI device first"});
        return;
    }
    sent_->whenSettled([this] { report(sending::reportSend(sent_->receipt())); });
    const bool hasTrouble = receipt.trouble != sending::Trouble::None;
    desktop_.runAlertPanel({"Tormelk Wyro", hasTrouble ? "Send Done\n\n" + said : "Send Done"});
}

}  // namespace editor
