#pragma once

// What the tests of both device dialogs share: a computer whose devices come and go, and a person
// who works in the dialog.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "devices/seldev.h"
#include "devices/seldev2.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedDesktop.h"
#include "support/ScriptedMidiService.h"

namespace devices {

inline std::vector<std::string> itemsOf(const toolkit::ComboBox& box) {
    std::vector<std::string> items;
    items.reserve(static_cast<std::size_t>(box.numberOfItems()));
    for (int i = 0; i < box.numberOfItems(); ++i) {
        items.emplace_back(box.itemObjectValueAtIndex(i).value());
    }
    return items;
}

/// The selected entry's text, or "nothing".
inline std::string selectedIn(const toolkit::ComboBox& box) {
    return std::string(box.itemObjectValueAtIndex(box.indexOfSelectedItem()).value_or("nothing"));
}

inline std::string nameOf(const midi::ZQMIDIEndpoint* endpoint) {
    return endpoint == nullptr ? "nothing" : endpoint->displayName();
}

/// A person picks the entry with this text; there must be just one.
inline void chooseByText(toolkit::ComboBox& box, const std::string& text) {
    int found = -1;
    for (int i = 0; i < box.numberOfItems(); ++i) {
        if (box.itemObjectValueAtIndex(i) == text) {
            ASSERT_EQ(found, -1) << "two entries " << text;
            found = i;
        }
    }
    ASSERT_NE(found, -1) << "no entry " << text;
    box.choose(found);
}

class DevicesTest : public testing::Test {
public:
    DevicesTest() = default;
    DevicesTest(const DevicesTest&) = delete;
    DevicesTest& operator=(const DevicesTest&) = delete;
    ~DevicesTest() override { EXPECT_THAT(service.misuses(), testing::IsEmpty()); }

protected:
    using Device = platform::software::Device;

    /// A device with an input and an output that bear its name.
    Device& addDevice(const std::string& name) {
        Device& device = service.addDevice(name);
        device.addSource(name);
        device.addDestination(name);
        return device;
    }
    void addDevices(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            addDevice(name);
        }
    }

    /// The program hears of what was plugged in and out since the last time.
    void hearOfChanges() { service.dispatch(); }

    midi::ZQMIDIManager& manager() { return process.sharedInstance(); }

    /// Opens a dialog and lets the person work in it; it ends by what the script does.
    template <typename Dialog, typename Choice>
    void runDialog(Choice& choice, const std::function<void(Dialog&)>& script) {
        desktop.onModal<Dialog>(script);
        Dialog dialog(choice, desktop);
        EXPECT_EQ(desktop.runModalForWindow(dialog), toolkit::Desktop::modalStopped);
        EXPECT_FALSE(dialog.window().isVisible());
    }

    /// Opens a dialog, picks an input and an output, and OK.
    template <typename Dialog, typename Choice>
    void chooseDevices(Choice& choice, const std::string& input, const std::string& output) {
        runDialog<Dialog>(choice, [&](Dialog& dialog) {
            chooseByText(dialog.combo_in, input);
            chooseByText(dialog.combo_out, output);
            dialog.okButton.click();
        });
    }

    support::ScriptedMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    support::ScriptedDesktop desktop;
    seldevChoice general{process};
    seldev2Choice check{process};
};

/// The rules that hold for both dialogs: a test for each of them.
template <typename Dialog>
class EitherDialog : public DevicesTest {
protected:
    using Choice = std::conditional_t<std::is_same_v<Dialog, seldev>, seldevChoice, seldev2Choice>;
    using Script = std::function<void(Dialog&)>;

    Choice& choice() {
        if constexpr (std::is_same_v<Dialog, seldev>) {
            return general;
        } else {
            return check;
        }
    }
    void open(const Script& script) { runDialog<Dialog>(choice(), script); }
    void chooseAndOk(const std::string& input, const std::string& output) {
        chooseDevices<Dialog>(choice(), input, output);
    }
    std::string chosenInput() { return nameOf(choice().InDevice()); }
    std::string chosenOutput() { return nameOf(choice().OutDevice()); }
};

using BothDialogs = testing::Types<seldev, seldev2>;

}  // namespace devices
