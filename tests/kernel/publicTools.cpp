#include "kernel/publicTools.h"

#include <array>
#include <stdexcept>

namespace kernel {

namespace {

void require(const ProgramResult& result, const std::string& what) {
    if (result.status != 0) {
        throw std::runtime_error(what + " failed: " + result.output);
    }
}

}  // namespace

std::string address(int client, int port) {
    return std::to_string(client) + ":" + std::to_string(port);
}

std::string hexadecimal(const Bytes& bytes) {
    constexpr std::array<char, 17> digits{"0123456789ABCDEF"};
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += text.empty() ? "" : " ";
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

ProgramResult connectPorts(const std::string& from, const std::string& to) {
    return run({"aconnect", from, to});
}

ProgramResult disconnectPorts(const std::string& from, const std::string& to) {
    return run({"aconnect", "-d", from, to});
}

ProgramResult sendToRawDevice(const std::string& device, const Bytes& bytes) {
    return run({"amidi", "-p", device, "-S", hexadecimal(bytes)});
}

void sendThroughSequencer(const std::string& port, const Bytes& bytes) {
    const std::string source = address(virtualMidiClient);
    require(connectPorts(source, port), "connecting");
    const ProgramResult sent = sendToRawDevice("hw:0,0", bytes);
    // Parting waits until the device has what was sent.
    require(disconnectPorts(source, port), "parting");
    require(sent, "sending");
}

}  // namespace kernel
