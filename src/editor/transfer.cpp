// Send: the whole image to the controller, a message for each layer.

#include <string>

#include "config/sendPause.h"
#include "config/sysex.h"
#include "editor/mainController.h"

namespace editor {

void mainController::sendData() {
    midi::ZQMIDIRealDestination* output = devices_.OutDevice();
    if (output == nullptr || !output->isOnline()) {
        desktop_.runAlertPanel({"Tormelk Wyro", "Please select MIDI device first"});
        return;
    }
    const std::string name = output->displayName();  // it is online: the name alone
    output->addSender(this);
    for (int layer = 0; layer < config::layerCount; ++layer) {
        const platform::MIDIPacketListPtr list =
            platform::makeOnePacketList(config::layerBlock(state_.sysData, layer));
        if (midi::ZQMIDIRealDestination* current = devices_.OutDevice()) {
            current->processMIDIPacketList(*list, this);
        }
        desktop_.sleepForTimeInterval(config::pauseAfterBlock);
    }
    output->removeSender(this);
    window_.status.setStringValue(output->isOnline() ? "Sent 4 layers to " + name
                                                     : name + " went away during the Send");
    desktop_.runAlertPanel({"Tormelk Wyro", "Send Done"});
}

}  // namespace editor
