#pragma once

#include <string>
#include <vector>

#include "kernel/Bytes.h"

// What a USB MIDI device tells the host about itself, byte for byte, and how MIDI is packed for the
// bus. From the USB device class definition for MIDI devices, release 1.0.

namespace kernel {

constexpr std::uint8_t bulkOutAddress = 0x02;
constexpr std::uint8_t bulkInAddress = 0x81;
/// The largest transfer of a bulk endpoint at full speed, in bytes.
constexpr std::uint8_t bulkPacketSize = 64;

/// The numbers of the device's strings.
constexpr std::uint8_t productString = 1;
constexpr std::uint8_t firstPortString = 2;

[[nodiscard]] Bytes deviceDescriptor();

/// The configuration with all that belongs to it: an audio control interface, as the class demands,
/// and a MIDI streaming interface with so many ports each way. Each port's jack has a string.
[[nodiscard]] Bytes configurationDescriptor(int ports);

/// A bulk endpoint in its short form.
[[nodiscard]] Bytes endpointDescriptor(std::uint8_t address);

/// The descriptor of a text, which must be plain ASCII and shorter than 127 letters.
[[nodiscard]] Bytes stringDescriptor(const std::string& text);

/// The descriptor that lists the languages of the texts: US English.
[[nodiscard]] Bytes languagesDescriptor();

/// One event of the bus: the port, and the one to three bytes of MIDI it carries.
struct UsbMidiEvent {
    int port = 0;
    Bytes bytes;
};

/// The events in a transfer, each of them four bytes; those without meaning are left out.
[[nodiscard]] std::vector<UsbMidiEvent> usbMidiEvents(const Bytes& transfer);

}  // namespace kernel
