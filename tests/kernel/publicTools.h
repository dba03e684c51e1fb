#pragma once

#include <string>

#include "kernel/Bytes.h"
#include "kernel/Program.h"

// The tools that everybody has (aconnect, amidi, aseqdump), for a second opinion on what goes over
// the wires. Ports are named by their addresses: "20:0".

namespace kernel {

/// The virtual MIDI device that is always there: what is written to one of its raw devices comes
/// out at its sequencer port.
constexpr int virtualMidiClient = 16;

[[nodiscard]] std::string address(int client, int port = 0);

/// Bytes as amidi takes and prints them: "F0 1D F7".
[[nodiscard]] std::string hexadecimal(const Bytes& bytes);

/// Runs aconnect, to connect two ports of any clients or to part them again.
ProgramResult connectPorts(const std::string& from, const std::string& to);
ProgramResult disconnectPorts(const std::string& from, const std::string& to);

/// Writes the bytes to a raw device ("hw:1,0,0") with amidi.
ProgramResult sendToRawDevice(const std::string& device, const Bytes& bytes);

/// Sends the bytes through the sequencer to a port: amidi writes them to the virtual MIDI device,
/// which is connected to the port for that long. Throws when one of the tools complains.
void sendThroughSequencer(const std::string& port, const Bytes& bytes);

}  // namespace kernel
