#pragma once

// What the tests of the firmware window share: a computer with a controller, a person, and a folder
// for files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "devices/seldev.h"
#include "files/TemporaryFolder.h"
#include "firmware/firm.h"
#include "firmware/message.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedDesktop.h"
#include "support/ScriptedMidiService.h"

namespace firmware {

namespace journal = support::journal;
using sending::Seconds;
using Bytes = std::vector<std::uint8_t>;

/// Bytes in which no two blocks are alike.
inline std::string someImage(std::size_t size, unsigned salt = 0) {
    std::string bytes(size, '\0');
    unsigned value = salt + 1;
    for (char& byte : bytes) {
        value = value * 1103515245U + 12345U;
        byte = static_cast<char>((value >> 16) & 0xFFU);
    }
    return bytes;
}

/// What left, and how long nothing happened: one of the two.
struct Event {
    Bytes bytes;
    double pause = 0;

    bool operator==(const Event&) const = default;
    friend void PrintTo(const Event& event, std::ostream* out) {
        *out << (event.bytes.empty() ? "pause " + std::to_string(event.pause)
                                     : journal::bytes(event.bytes));
    }
};

class FirmwareTest : public testing::Test {
public:
    FirmwareTest() = default;
    FirmwareTest(const FirmwareTest&) = delete;
    FirmwareTest& operator=(const FirmwareTest&) = delete;
    ~FirmwareTest() override {
        EXPECT_EQ(service.openOutputPorts(), 0U);
        EXPECT_THAT(service.misuses(), testing::IsEmpty());
    }

protected:
    /// The controller: a device with an input and an output that bear its name.
    platform::software::Destination& plugController(const std::string& name = "Tormelk") {
        device = &service.addDevice(name);
        source = &device->addSource(name);
        output = &device->addDestination(name);
        return *output;
    }

    /// A person presses a button that opens the device dialog, and OK.
    void chooseDevice() {
        desktop.onModal<devices::seldev>([](devices::seldev& shown) { shown.okButton.click(); });
        dialog().selectButton.click();
    }

    /// A person opens a file by step 4. An alert that comes must have been laid down.
    void open(const std::filesystem::path& path) {
        desktop.answerOpenPanel(path);
        dialog().openButton.click();
    }
    void openImage(const std::string& bytes, const std::string& name = "tormelk.bin") {
        files::write(folder / name, bytes);
        open(folder / name);
    }

    void answerConfirmation(bool agrees) {
        desktop.onModal<message>(
            [agrees](message& shown) { (agrees ? shown.okButton : shown.cancelButton).click(); });
    }
    /// A person presses Upload, agrees, and reads that it is completed.
    void upload() {
        answerConfirmation(true);
        desktop.answerAlert();
        dialog().uploadButton.click();
    }

    /// Writes down what leaves from now on.
    void record() {
        events.clear();
        desktop.onSleep = [this](Seconds pause) { events.push_back({{}, pause.count()}); };
        output->onReceive([this](const platform::MIDIPacketList& list) {
            platform::forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
                events.push_back({Bytes(bytes.begin(), bytes.end()), 0});
            });
        });
    }

    /// The window, awake. A new one keeps the state.
    firm& dialog() {
        if (!dialog_) {
            dialog_ = std::make_unique<firm>(state, devices, desktop);
            dialog_->window().makeKeyAndOrderFront();
        }
        return *dialog_;
    }
    void reopenDialog() { dialog_.reset(); }

    /// The alerts so far, as lines.
    [[nodiscard]] std::vector<std::string> alerts() const {
        std::vector<std::string> lines;
        for (const toolkit::Alert& alert : desktop.alerts()) {
            lines.push_back(journal::alert(alert));
        }
        return lines;
    }

    files::TemporaryFolder folder{files::parentInMemory()};
    support::ScriptedMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    support::ScriptedDesktop desktop;
    devices::seldevChoice devices{process};
    FirmwareState state{process};
    platform::software::Device* device = nullptr;
    platform::software::Source* source = nullptr;
    platform::software::Destination* output = nullptr;
    std::vector<Event> events;

private:
    std::unique_ptr<firm> dialog_;
};

/// A one-button alert as a line of the journal.
inline std::string alertLine(const char* title, const char* message) {
    return journal::alert(toolkit::Alert{title, message, "OK", ""});
}

}  // namespace firmware
