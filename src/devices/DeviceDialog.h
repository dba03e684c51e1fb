#pragma once

// What the two device dialogs have in common: a list of inputs and a list of outputs by display
// name, OK and Cancel. Which choice is stored where is the dialogs' own.

#include <cstddef>
#include <vector>

#include "midi/ZQMIDIManager.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "toolkit/Button.h"
#include "toolkit/ComboBox.h"
#include "toolkit/Desktop.h"
#include "toolkit/TextField.h"
#include "toolkit/WindowController.h"

namespace devices {

/// The endpoints chosen last in one of the dialogs; none at first. The manager keeps every
/// endpoint alive, so they stay valid whatever is unplugged.
struct ChosenDevices {
    midi::ZQMIDIRealSource* g_inDevice = nullptr;
    midi::ZQMIDIRealDestination* g_outDevice = nullptr;
};

/// The lists are the manager's own, and stay so while the dialog is open: when devices come or go
/// they are shown afresh, and what was selected stays selected, wherever it now stands. So the
/// position that OK reads always belongs to the endpoint that was chosen.
class DeviceDialog : public toolkit::WindowController {
public:
    toolkit::ComboBox combo_in;
    toolkit::ComboBox combo_out;
    /// Disabled while a list that has entries has no selection.
    toolkit::Button okButton;
    toolkit::Button cancelButton;
    /// Why a list is empty, and what can be done about it; empty where there is nothing to say.
    toolkit::TextField hint;

    /// Stores the choice and closes the window. Where OK is not allowed it does nothing.
    void ok();
    /// Closes the window; the stored choice stays.
    void cancel();
    void windowWillClose() override;

protected:
    DeviceDialog(midi::ZQMIDIProcess& process, toolkit::Desktop& desktop, ChosenDevices& chosen);

    /// Fills both lists and selects what was chosen last, if it is online, or else the first.
    void fillLists();

    /// An output was stored; it stands at `index` in the manager's list.
    virtual void outputStored(int index) = 0;

private:
    void setupChanged();
    void judgeOk();
    void showHint();
    void storeChoice();

    midi::ZQMIDIProcess& process_;
    toolkit::Desktop& desktop_;
    ChosenDevices& chosen_;

    // The endpoints behind the items shown, in their order.
    std::vector<midi::ZQMIDIRealSource*> shownInputs_;
    std::vector<midi::ZQMIDIRealDestination*> shownOutputs_;
    platform::NotificationCentre::Registration setupChanges_;
    platform::NotificationCentre::Registration stateChanges_;
};

}  // namespace devices
