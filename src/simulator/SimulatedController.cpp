#include "simulator/SimulatedController.h"

#include <algorithm>
#include <array>
#include <utility>

#include "config/sysex.h"
#include "texts/hexadecimal.h"

namespace simulator {
namespace {

constexpr std::uint8_t sysExStatus = 0xF0;
constexpr std::uint8_t nibbleStatus = 0x9F;
constexpr std::array<std::uint8_t, 8> updateModeMessage = {0xF0, 0x1D, 0x03, 0x00,
                                                           0x69, 0x55, 0x7F, 0xF7};

const char* kindOf(std::uint8_t status) {
    switch (status & 0xF0) {
        case 0x80:
            return "Note off";
        case 0x90:
            return "Note on";
        case 0xA0:
            return "Key pressure";
        case 0xB0:
            return "Control change";
        case 0xC0:
            return "Program change";
        case 0xD0:
            return "Channel pressure";
        case 0xE0:
            return "Pitch bend";
        default:
            return "System message";
    }
}

/// Whether the message carries a byte in two halves.
bool isFirmwareByte(std::span<const std::uint8_t> message) {
    return message.front() == nibbleStatus && message[1] < 0x10 && message[2] < 0x10;
}

}  // namespace

void SimulatedController::receive(std::span<const std::uint8_t> bytes) {
    const std::uint64_t entriesBefore = entries_;
    const bool wasOffline = offline_;
    for (const std::uint8_t byte : bytes) {
        if (!offline_) {
            assembler_.add(byte);
        }
    }
    if (offline_ && !wasOffline && onOffline) {
        onOffline();
    }
    if (entries_ != entriesBefore && onChange) {
        onChange();
    }
}

void SimulatedController::goOfflineAfter(std::size_t messages) {
    messagesUntilOffline_ = messages;
    if (messages == 0) {
        offline_ = true;
        messagesUntilOffline_.reset();
    }
}

void SimulatedController::goOnline() {
    offline_ = false;
    messagesUntilOffline_.reset();
}

void SimulatedController::countMessage() {
    if (messagesUntilOffline_ && --*messagesUntilOffline_ == 0) {
        messagesUntilOffline_.reset();
        offline_ = true;
        note(false, "Offline, as it was told", 0);
    }
}

files::ReplaceResult SimulatedController::saveFirmware(const std::filesystem::path& path) const {
    const std::span<const std::uint8_t> written = firmware_.written();
    return files::replaceFile(path, std::string(written.begin(), written.end()));
}

void SimulatedController::take(std::span<const std::uint8_t> message) {
    if (isFirmwareByte(message)) {
        takeFirmwareByte(message);
        countMessage();
        return;
    }
    refusesFirmware_ = false;
    if (message.front() == sysExStatus) {
        takeSysEx(message);
    } else {
        note(false,
             std::string(kindOf(message.front())) + " (" + texts::hexadecimal(message) +
                 (inUpdateMode_ ? ") is no firmware" : ") is no configuration message"),
             message.size());
    }
    countMessage();
}

void SimulatedController::takeFirmwareByte(std::span<const std::uint8_t> message) {
    if (!inUpdateMode_) {
        if (!refusesFirmware_) {
            refusesFirmware_ = true;
            note(false,
                 "Note on (" + texts::hexadecimal(message) +
                     ") and what follows: firmware is taken in "
                     "the update mode only",
                 message.size());
        }
        return;
    }
    const auto byte = static_cast<std::uint8_t>(message[1] << 4 | message[2]);
    std::optional<FirmwareReceiver::Report> report = firmware_.take(byte);
    if (report) {
        inUpdateMode_ = !report->restarts;
        note(report->accepted, std::move(report->text), report->bytes);
    }
}

void SimulatedController::beginUpdateMode(std::size_t bytes) {
    inUpdateMode_ = true;
    firmware_.begin();
    note(true, "Update mode: waits for firmware", bytes);
}

void SimulatedController::takeSysEx(std::span<const std::uint8_t> message) {
    if (std::equal(message.begin(), message.end(), updateModeMessage.begin(),
                   updateModeMessage.end())) {
        beginUpdateMode(message.size());
    } else if (inUpdateMode_) {
        note(false,
             "Message begins " + texts::hexadecimal(config::headerOf(message)) +
                 ": in the update mode only firmware is taken",
             message.size());
    } else {
        takeConfiguration(message);
    }
}

void SimulatedController::takeConfiguration(std::span<const std::uint8_t> message) {
    config::MessageReading reading = config::readMessage(message);
    if (!reading.layer) {
        note(false, std::move(reading.objection), message.size());
        return;
    }
    const auto layer = static_cast<std::size_t>(*reading.layer);
    std::copy(message.begin(), message.end(), layers_[layer].emplace().begin());
    note(true, "Layer " + std::to_string(layer + 1) + " taken in", message.size());
}

void SimulatedController::refuse(std::string reason, std::size_t bytes) {
    note(false, std::move(reason), bytes);
    countMessage();
}

void SimulatedController::note(bool accepted, std::string text, std::size_t bytes) {
    log_.push_back({++entries_, accepted, std::move(text), bytes});
    if (log_.size() > longestLog) {
        log_.pop_front();
    }
}

}  // namespace simulator
