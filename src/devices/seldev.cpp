#include "devices/seldev.h"

namespace devices {

int seldevChoice::GetInputDevices() const {
    return static_cast<int>(process_.sharedInstance().realSources().size());
}

const seldevChoice::Destinations& seldevChoice::GetDravikDevices() const {
    return process_.sharedInstance().realDestinations();
}

const seldevChoice::Destinations& seldevChoice::GetTormelkDevices() const {
    return process_.sharedInstance().realDestinations();
}

const seldevChoice::Destinations& seldevChoice::GetQorvelDevices() const {
    return process_.sharedInstance().realDestinations();
}

seldev::seldev(seldevChoice& choice, toolkit::Desktop& desktop)
    : DeviceDialog(choice.process(), desktop, choice.chosen), choice_(choice) {}

void seldev::outputStored(int) {
    choice_.midi_device_open = 1;
}

}  // namespace devices
