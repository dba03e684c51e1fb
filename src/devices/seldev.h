#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "devices/DeviceDialog.h"

namespace devices {

/// What `seldev` chose last: the output of every send. It outlives the dialogs.
class seldevChoice {
public:
    using Destinations = std::vector<std::unique_ptr<midi::ZQMIDIRealDestination>>;

    explicit seldevChoice(midi::ZQMIDIProcess& process) : process_(process) {}

    /// The chosen input; may be none.
    [[nodiscard]] midi::ZQMIDIRealSource* InDevice() const { return chosen.g_inDevice; }
    /// The chosen output; may be none.
    [[nodiscard]] midi::ZQMIDIRealDestination* OutDevice() const { return chosen.g_outDevice; }

    /// How many inputs the manager knows.
    [[nodiscard]] int GetInputDevices() const;

    // The manager's outputs, unfiltered; one entry point for each family of controllers.
    [[nodiscard]] const Destinations& GetDravikDevices() const;
    [[nodiscard]] const Destinations& GetTormelkDevices() const;
    [[nodiscard]] const Destinations& GetQorvelDevices() const;

    [[nodiscard]] midi::ZQMIDIProcess& process() const { return process_; }

    ChosenDevices chosen;

    /// 1 since OK stored an output; a firmware update clears it.
    std::uint8_t midi_device_open = 0;

private:
    midi::ZQMIDIProcess& process_;
};

/// The device dialog of the main window and the firmware window.
class seldev final : public DeviceDialog {
public:
    seldev(seldevChoice& choice, toolkit::Desktop& desktop);

protected:
    void awakeFromNib() override { fillLists(); }
    void outputStored(int index) override;

private:
    seldevChoice& choice_;
};

}  // namespace devices
