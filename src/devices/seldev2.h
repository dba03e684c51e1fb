#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "devices/DeviceDialog.h"

namespace devices {

/// What `seldev2` chose last: a choice of its own, which `seldev` knows nothing of.
class seldev2Choice {
public:
    using Destinations = std::vector<std::unique_ptr<midi::ZQMIDIRealDestination>>;

    explicit seldev2Choice(midi::ZQMIDIProcess& process) : process_(process) {}

    /// The chosen input; may be none.
    [[nodiscard]] midi::ZQMIDIRealSource* InDevice() const { return chosen.g_inDevice; }
    /// The chosen output; may be none.
    [[nodiscard]] midi::ZQMIDIRealDestination* OutDevice() const { return chosen.g_outDevice; }

    /// How many inputs the manager knows.
    [[nodiscard]] int GetInputDevices() const;
    /// The manager's outputs, unfiltered.
    [[nodiscard]] const Destinations& GetQorvelDevices() const;

    [[nodiscard]] midi::ZQMIDIProcess& process() const { return process_; }

    ChosenDevices chosen;

    /// Position of the chosen output in the manager's list. The firmware window takes the input at
    /// this position: a device's input and output ports stand at the same place.
    std::int32_t sd2_out_indx = 0;

private:
    midi::ZQMIDIProcess& process_;
};

/// The device dialog of the firmware window's connection check.
class seldev2 final : public DeviceDialog {
public:
    seldev2(seldev2Choice& choice, toolkit::Desktop& desktop);

    /// Fills both lists; runs when the dialog opens.
    void viewDidLoad() { fillLists(); }

protected:
    void awakeFromNib() override { viewDidLoad(); }
    void outputStored(int index) override;

private:
    seldev2Choice& choice_;
};

}  // namespace devices
