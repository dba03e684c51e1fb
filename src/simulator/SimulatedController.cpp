#include "simulator/SimulatedController.h"

#include <algorithm>
#include <utility>

#include "config/factoryTables.h"
#include "simulator/hexadecimal.h"

namespace simulator {
namespace {

constexpr std::uint8_t sysExBegin = 0xF0;

std::span<const std::uint8_t> configurationHeader() {
    return std::span(config::SysBuf_init).first(config::headerSize);
}

/// The message's own header: its first bytes, without the end mark.
std::span<const std::uint8_t> headerOf(std::span<const std::uint8_t> sysEx) {
    return sysEx.first(std::min(sysEx.size() - 1, config::headerSize));
}

/// Whether the message, as far as it goes, begins like a configuration message.
bool beginsAsConfiguration(std::span<const std::uint8_t> sysEx) {
    const std::span<const std::uint8_t> header = headerOf(sysEx);
    return std::equal(header.begin(), header.end(), configurationHeader().begin());
}

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

}  // namespace

void SimulatedController::receive(std::span<const std::uint8_t> bytes) {
    const std::uint64_t entriesBefore = entries_;
    for (const std::uint8_t byte : bytes) {
        assembler_.add(byte);
    }
    if (entries_ != entriesBefore && onChange) {
        onChange();
    }
}

void SimulatedController::take(std::span<const std::uint8_t> message) {
    if (message.front() == sysExBegin) {
        takeSysEx(message);
    } else {
        refuse(std::string(kindOf(message.front())) + " (" + hexadecimal(message) +
                   ") is no configuration message",
               message.size());
    }
}

void SimulatedController::takeSysEx(std::span<const std::uint8_t> message) {
    if (!beginsAsConfiguration(message)) {
        refuse("Message begins " + hexadecimal(headerOf(message)) +
                   ": a configuration message begins " + hexadecimal(configurationHeader()),
               message.size());
        return;
    }
    if (message.size() != config::blockSize) {
        refuse("Message of " + std::to_string(message.size()) +
                   " bytes: a configuration message has " + std::to_string(config::blockSize),
               message.size());
        return;
    }
    const std::size_t block = message[config::blockNumberOffset];
    if (block < 1 || block > layers_.size()) {
        refuse("Block number " + std::to_string(block) + ": the blocks are 1 to " +
                   std::to_string(layers_.size()),
               message.size());
        return;
    }
    std::copy(message.begin(), message.end(), layers_[block - 1].emplace().begin());
    note(true, "Layer " + std::to_string(block) + " taken in", message.size());
}

void SimulatedController::refuse(std::string reason, std::size_t bytes) {
    note(false, std::move(reason), bytes);
}

void SimulatedController::note(bool accepted, std::string text, std::size_t bytes) {
    log_.push_back({++entries_, accepted, std::move(text), bytes});
    if (log_.size() > longestLog) {
        log_.pop_front();
    }
}

}  // namespace simulator
