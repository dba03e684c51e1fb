#include "devices/seldev2.h"

namespace devices {

int seldev2Choice::GetInputDevices() const {
    return static_cast<int>(process_.sharedInstance().realSources().size());
}

const seldev2Choice::Destinations& seldev2Choice::GetQorvelDevices() const {
    return process_.sharedInstance().realDestinations();
}

seldev2::seldev2(seldev2Choice& choice, toolkit::Desktop& desktop)
    : DeviceDialog(choice.process(), desktop, choice.chosen), choice_(choice) {}

void seldev2::outputStored(int index) {
    choice_.sd2_out_indx = index;
}

}  // namespace devices
