// Step 5: the upload. What is sent, and what became of it, is sending/Uploader's; here it is shown.

#include "firmware/firm.h"
#include "firmware/message.h"
#include "firmware/uploadWords.h"
#include "sending/Uploader.h"

namespace firmware {

void firm::upLoad() {
    if (!mayUpload()) {
        return;
    }
    message confirmation(desktop_, state_.a, confirmationOf(state_, uploadOutput()));
    desktop_.runModalForWindow(confirmation);
    if (state_.a == 0) {
        return;
    }
    state_.upload.reset();
    if (devices_.midi_device_open != 0 && state_.m_bin_file != 0) {
        transferImage();
    }
    devices_.midi_device_open = 0;
    state_.m_bin_file = 0;
    state_.lastStepDone = state_.upload ? openStep : checkStep;
    followUpload();
    // What is not known yet would be stale before the alert is answered.
    const bool isKnown = !state_.upload || state_.upload->receipt().isSettled;
    const std::string outcome = isKnown ? step5.stringValue() : "";
    alert("Upload", "Upload completed." + (outcome.empty() ? "" : "\n\n" + outcome));
    if (!state_.upload || !state_.upload->receipt().isCut()) {
        progress.setDoubleValue(0);
    }
    showSteps();
}

bool firm::mayUpload() {
    if (devices_.midi_device_open == 0) {
        alert("Warning", state_.m_bin_file == 1 ? "Please select the MIDI Device."
                                                : "Please  select the MIDI Device and  open file.");
        return false;
    }
    if (state_.m_bin_file == 0) {
        alert("Warning", "Please open file .");
        return false;
    }
    return true;
}

void firm::transferImage() {
    progress.setDoubleValue(0);  // the last upload's
    step5.setStringValue("Connecting and erasing");
    using Event = sending::Uploader::Event;
    sending::Uploader uploader(state_, way(), [this](Event event, const sending::Receipt& receipt) {
        if (event == Event::BlocksBegin) {
            beginProgress();
        } else if (event == Event::BlockDone) {
            progress.incrementBy(1);
        }
        showProgress(receipt);
    });
    state_.upload = uploader.upload();
}

void firm::beginProgress() {
    progress.setDoubleValue(0);
    progress.setMinValue(0);
    const std::size_t mostBlocks = state_.len / sending::imageBytesInABlock + 1;
    progress.setMaxValue(static_cast<double>(mostBlocks));
}

void firm::showProgress(const sending::Receipt& receipt) {
    step5.setStringValue(progressOf(receipt));
    if (receipt.isCut()) {
        stopProgress(receipt);
    }
    progress.setHidden(false);
    progress.display();
}

/// The bar stands where the upload was cut.
void firm::stopProgress(const sending::Receipt& receipt) {
    progress.setDoubleValue(static_cast<double>(sending::blocksOf(receipt).left));
}

/// Shows what became of the last upload, now and when more is known.
void firm::followUpload() {
    if (!state_.upload) {
        step5.setStringValue("Nothing was sent: the device or the file was not chosen any more.");
        return;
    }
    state_.upload->look();
    showOutcome();
    state_.upload->whenSettled([this] {
        showOutcome();
        showSteps();
    });
}

void firm::showOutcome() {
    const sending::Receipt& receipt = state_.upload->receipt();
    step5.setStringValue(outcomeOf(receipt));
    if (receipt.isCut()) {
        stopProgress(receipt);
    }
    // The person may have begun anew before this one was settled.
    const bool hasGoneOn = state_.lastStepDone != openStep || state_.m_bin_file != 0;
    if (receipt.isSettled && !hasGoneOn) {
        const bool isDone = receipt.hasLeft() && sending::blocksOf(receipt).all > 0;
        state_.lastStepDone = isDone ? lastStep : checkStep;
    }
}

}  // namespace firmware
