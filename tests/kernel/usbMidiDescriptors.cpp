#include "kernel/usbMidiDescriptors.h"

#include <array>

namespace kernel {

namespace {

// The kinds of descriptors, and those of a MIDI streaming interface.
constexpr std::uint8_t deviceKind = 0x01;
constexpr std::uint8_t configurationKind = 0x02;
constexpr std::uint8_t stringKind = 0x03;
constexpr std::uint8_t interfaceKind = 0x04;
constexpr std::uint8_t endpointKind = 0x05;
constexpr std::uint8_t classInterfaceKind = 0x24;
constexpr std::uint8_t classEndpointKind = 0x25;
constexpr std::uint8_t headerKind = 0x01;
constexpr std::uint8_t inJackKind = 0x02;
constexpr std::uint8_t outJackKind = 0x03;
constexpr std::uint8_t embedded = 0x01;
constexpr std::uint8_t external = 0x02;
constexpr std::uint8_t audioClass = 0x01;
constexpr std::uint8_t controlSubclass = 0x01;
constexpr std::uint8_t midiSubclass = 0x03;

std::uint8_t low(std::size_t value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}

std::uint8_t high(std::size_t value) {
    return static_cast<std::uint8_t>((value >> 8) & 0xFF);
}

/// A descriptor begins with its own length.
void append(Bytes& bytes, const Bytes& content) {
    bytes.push_back(low(content.size() + 1));
    bytes.insert(bytes.end(), content.begin(), content.end());
}

// The numbers of a port's jacks. A message of the host comes in at the embedded "in" jack and
// leaves by the external "out" jack; the other way round for those of the device.
enum Jack { embeddedIn = 1, externalIn = 2, embeddedOut = 3, externalOut = 4 };

std::uint8_t jackOf(int port, Jack jack) {
    return static_cast<std::uint8_t>(4 * port + jack);
}

Bytes jacks(int ports) {
    Bytes bytes;
    for (int port = 0; port < ports; ++port) {
        const auto name = static_cast<std::uint8_t>(firstPortString + port);
        const auto number = [port](Jack jack) { return jackOf(port, jack); };
        append(bytes, {classInterfaceKind, inJackKind, embedded, number(embeddedIn), name});
        append(bytes, {classInterfaceKind, inJackKind, external, number(externalIn), 0});
        append(bytes, {classInterfaceKind, outJackKind, embedded, number(embeddedOut), 1,
                       number(externalIn), 1, name});
        append(bytes, {classInterfaceKind, outJackKind, external, number(externalOut), 1,
                       number(embeddedIn), 1, 0});
    }
    return bytes;
}

/// An endpoint with the ports' jacks that it carries.
void appendEndpoint(Bytes& bytes, std::uint8_t address, int ports, Jack jack) {
    append(bytes, {endpointKind, address, 2, bulkPacketSize, 0, 0, 0, 0});
    Bytes jackList{classEndpointKind, headerKind, static_cast<std::uint8_t>(ports)};
    for (int port = 0; port < ports; ++port) {
        jackList.push_back(jackOf(port, jack));
    }
    append(bytes, jackList);
}

Bytes midiStreaming(int ports) {
    Bytes parts = jacks(ports);
    appendEndpoint(parts, bulkOutAddress, ports, embeddedIn);
    appendEndpoint(parts, bulkInAddress, ports, embeddedOut);

    Bytes bytes;
    append(bytes, {interfaceKind, 1, 0, 2, audioClass, midiSubclass, 0, 0});
    constexpr std::size_t headerSize = 7;
    const std::size_t total = headerSize + parts.size();
    append(bytes, {classInterfaceKind, headerKind, 0, 1, low(total), high(total)});
    bytes.insert(bytes.end(), parts.begin(), parts.end());
    return bytes;
}

}  // namespace

Bytes deviceDescriptor() {
    Bytes bytes;
    // USB 2.0, the class in the interfaces, 64 bytes at endpoint 0; vendor, product, version;
    // strings for the maker (none), the product and the serial number (none); one configuration.
    append(bytes, {deviceKind, 0x00, 0x02, 0, 0, 0, 64, 0x6B, 0x1D, 0x05, 0x01, 0x00, 0x01, 0,
                   productString, 0, 1});
    return bytes;
}

Bytes configurationDescriptor(int ports) {
    Bytes interfaces;
    append(interfaces, {interfaceKind, 0, 0, 0, audioClass, controlSubclass, 0, 0});
    append(interfaces, {classInterfaceKind, headerKind, 0, 1, 9, 0, 1, 1});
    const Bytes midi = midiStreaming(ports);
    interfaces.insert(interfaces.end(), midi.begin(), midi.end());

    Bytes bytes;
    constexpr std::size_t headerSize = 9;
    const std::size_t total = headerSize + interfaces.size();
    // Two interfaces, configuration 1, no name, powered by the bus with 100 mA.
    append(bytes, {configurationKind, low(total), high(total), 2, 1, 0, 0x80, 50});
    bytes.insert(bytes.end(), interfaces.begin(), interfaces.end());
    return bytes;
}

Bytes endpointDescriptor(std::uint8_t address) {
    Bytes bytes;
    append(bytes, {endpointKind, address, 2, bulkPacketSize, 0, 0});
    return bytes;
}

Bytes stringDescriptor(const std::string& text) {
    Bytes content{stringKind};
    for (const char letter : text) {
        content.push_back(static_cast<std::uint8_t>(letter));
        content.push_back(0);
    }
    Bytes bytes;
    append(bytes, content);
    return bytes;
}

Bytes languagesDescriptor() {
    return {4, stringKind, 0x09, 0x04};
}

std::vector<UsbMidiEvent> usbMidiEvents(const Bytes& transfer) {
    // By the code in the lower half of an event's first byte.
    static constexpr std::array<std::size_t, 16> sizes{0, 0, 2, 3, 3, 1, 2, 3,
                                                       3, 3, 3, 3, 2, 2, 3, 1};
    std::vector<UsbMidiEvent> events;
    for (std::size_t start = 0; start + 4 <= transfer.size(); start += 4) {
        const std::uint8_t head = transfer[start];
        if (const std::size_t size = sizes[head & 0x0F]) {
            const auto first = transfer.begin() + static_cast<std::ptrdiff_t>(start) + 1;
            events.push_back({head >> 4, Bytes(first, first + static_cast<std::ptrdiff_t>(size))});
        }
    }
    return events;
}

}  // namespace kernel
