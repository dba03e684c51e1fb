#include "firmware/firm.h"

#include <algorithm>
#include <utility>

#include "devices/seldev2.h"
#include "firmware/readImage.h"
#include "firmware/uploadWords.h"
#include "sending/frames.h"
#include "sending/pace.h"
#include "sending/send.h"

namespace firmware {
firm::firm(FirmwareState& state, devices::seldevChoice& devices, toolkit::Desktop& desktop)
    : state_(state), devices_(devices), desktop_(desktop) {
    connectActions();
}

firm::~firm() {
    if (state_.upload) {
        state_.upload->whenSettled(nullptr);
    }
}

void firm::connectActions() {
    outputButton.action = [this](toolkit::Button&) {
        runDeviceDialog();
        showSteps();
    };
    updateButton.action = [this](toolkit::Button&) { upDate(); };
    checkButton.action = [this](toolkit::Button&) { midiCheck(); };
    selectButton.action = [this](toolkit::Button&) { midiSelect(); };
    openButton.action = [this](toolkit::Button&) { openFile(); };
    uploadButton.action = [this](toolkit::Button&) { upLoad(); };
    closeButton.action = [this](toolkit::Button&) { cancel(); };
}

void firm::awakeFromNib() {
    set_Title();
    progress.setDoubleValue(static_cast<double>(state_.file_len_count));
    progress.setHidden(false);
    if (state_.upload) {
        const std::uint64_t blocks = sending::blocksOf(state_.upload->receipt()).all;
        progress.setMaxValue(static_cast<double>(std::max<std::uint64_t>(blocks, 1)));
        followUpload();
    }
    showSteps();
    setupChanges_ = devices_.process().notificationCentre().addObserver(
        midi::ZQMIDISetupChanged, [this](const void*) { showSteps(); });
}

void firm::set_Title() {
    window().setTitle("Firmware Upgrade");
}

void firm::cancel() {
    window().close();
}

void firm::windowWillClose() {
    desktop_.stopModal();
}

void firm::alert(std::string title, std::string message) {
    desktop_.runAlertPanel({std::move(title), std::move(message)});
}

sending::Way firm::way() {
    return {devices_.process().service(), [this] { return devices_.OutDevice(); },
            [this](sending::Seconds pause) { desktop_.sleepForTimeInterval(pause); }};
}

void firm::upDate() {
    const sending::Consignment message =
        sending::sendMessage(sending::update, sending::afterUpdateMessage, way());
    const sending::Receipt& receipt = message.receipt();
    const bool hasLeft = receipt.hasLeft();
    if (receipt.trouble == sending::Trouble::NoOutput ||
        receipt.trouble == sending::Trouble::Offline) {
        alert("Tormelk Wyro", "Please select MIDI device first");
    } else {
        alert("Tormelk Wyro", hasLeft ? "Send Done"
                                      : "Send Done\n\nThe message has not left this computer: " +
                                            reasonOf(receipt) + ".");
    }
    devices_.midi_device_open = 0;
    if (state_.upload && !state_.upload->receipt().isSettled) {
        followUpload();  // the message went the same way, so no more will be known of it
    }
    if (hasLeft) {
        stepDone(updateModeStep);
    } else {
        showSteps();
    }
}

void firm::midiCheck() {
    devices::seldev2 dialog(state_.connectionCheck, desktop_);
    desktop_.runModalForWindow(dialog);
    const auto& sources = devices_.process().sharedInstance().realSources();
    const std::int32_t index = state_.connectionCheck.sd2_out_indx;
    const bool inside = index >= 0 && static_cast<std::size_t>(index) < sources.size();
    const midi::ZQMIDIRealSource* source =
        inside ? sources[static_cast<std::size_t>(index)].get() : nullptr;
    if (source == nullptr || source->isOnline()) {
        checked_ = source == nullptr ? "There is no such input."
                                     : source->displayName() + " is connected.";
        stepDone(checkStep);
        return;
    }
    checked_ = "Not connected: " + source->displayName();
    const toolkit::AlertAnswer answer = desktop_.runAlertPanel(
        {"Notice",
         "Tormelk firmware has erased. Please close this Wyro software and re-launch it to make a "
         "new connection with Tormelk. After Wyro has re-launched, just perform step 3 to step 5 "
         "(i.e. no need to perform step 1 & step 2 again)\n\nExit the Wyro now or Later?",
         "Exit now", "Exit later"});
    if (answer == toolkit::AlertAnswer::Default) {
        desktop_.exit(1);
    }
    showSteps();
}

void firm::midiSelect() {
    runDeviceDialog();
    if (devices_.midi_device_open != 0) {
        stepDone(selectStep);
    } else {
        showSteps();
    }
}

void firm::runDeviceDialog() {
    devices::seldev dialog(devices_, desktop_);
    desktop_.runModalForWindow(dialog);
}

void firm::openFile() {
    if (devices_.midi_device_open == 0) {
        alert(" Tormelk Wyro", "Please select MIDI device first");
        return;
    }
    const auto path = desktop_.runOpenPanel({"BIN", {"BIN"}});
    if (!path) {
        return;
    }
    switch (readImage(*path, state_)) {
        case ReadOutcome::Accepted:
            stepDone(openStep);
            return;
        case ReadOutcome::CannotRead:
            alert("Tormelk Wyro", "Fail to load Tormelk file ");
            return;
        case ReadOutcome::WrongName:
            alert(" Tormelk Wyro", "Wrong file name !");
            break;
        case ReadOutcome::TooLarge:
            alert(" Tormelk Wyro", "Not Tormelk file");
            break;
    }
    stepDone(selectStep);  // the file is still to be opened
}

void firm::stepDone(int step) {
    state_.lastStepDone = step;
    showSteps();
}

int firm::nextStep() const {
    if (state_.upload && !state_.upload->receipt().isSettled) {
        return lastStep;  // it still goes on
    }
    const int next = state_.lastStepDone + 1;
    if (next > lastStep) {
        return 0;
    }
    if (next >= openStep && devices_.midi_device_open == 0) {
        return selectStep;
    }
    if (next == lastStep && state_.m_bin_file == 0) {
        return openStep;
    }
    return next;
}

void firm::showSteps() {
    const bool updateModeSent = state_.lastStepDone >= updateModeStep;
    step1.setStringValue(chosenOutputInWords());
    step2.setStringValue(checked_);
    step3.setStringValue(updateModeSent && devices_.midi_device_open == 0 ? "To be chosen again."
                                                                          : chosenOutputInWords());
    step4.setStringValue(chosenFileInWords());
    if (onNextStep) {
        onNextStep();
    }
}

std::string firm::chosenOutputInWords() const {
    const midi::ZQMIDIRealDestination* output = devices_.OutDevice();
    return output == nullptr ? "No output chosen." : "Output: " + output->displayName();
}

std::string firm::chosenFileInWords() const {
    const ChosenFile& file = state_.chosenFile;
    if (state_.m_bin_file == 0 || file.verdict == ChosenFile::Verdict::None) {
        return "No file chosen.";
    }
    if (file.isRefused()) {
        return "Refused: " + file.name;
    }
    return file.name + ", " + sending::inWords(file.size) + (file.size == 1 ? " byte" : " bytes");
}

UploadOutput firm::uploadOutput() const {
    const midi::ZQMIDIRealDestination* output = devices_.OutDevice();
    if (output == nullptr) {
        return {};
    }
    return {output->displayName(), output->isOnline(),
            devices_.process().service().connectedPrograms(output->midiEndpointRef())};
}

}  // namespace firmware
