#pragma once

#include "midi/ZQMIDIRealEndpoint.h"

namespace midi {

/// A destination of the system: sends packet lists to it. A list handed over without a sender
/// registered goes nowhere, silently, because no port is open.
class ZQMIDIRealDestination final : public ZQMIDIRealEndpoint {
public:
    ZQMIDIRealDestination(ZQMIDIManager& manager, platform::MIDIEndpointRef endpoint)
        : ZQMIDIRealEndpoint(manager, endpoint) {}
    ZQMIDIRealDestination(ZQMIDIManager& manager, const ZQMIDIEndpointDescriptor& descriptor)
        : ZQMIDIRealEndpoint(manager, descriptor) {}
    ~ZQMIDIRealDestination() override;

    /// The manager's object for the archived endpoint: decoding makes no second one.
    [[nodiscard]] static ZQMIDIRealDestination& initWithCoder(ZQMIDIManager& manager,
                                                              const archive::KeyedDecoder& coder);
    [[nodiscard]] std::string_view archivedClassName() const override {
        return "ZQMIDIRealDestination";
    }

    /// Sends the list on the calling thread.
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override;

private:
    [[nodiscard]] platform::MIDIEndpointRef findEndpoint() const override;
    platform::MIDIPortRef openPort(platform::MIDIEndpointRef endpoint) override;
    void closePort(platform::MIDIPortRef port, platform::MIDIEndpointRef endpoint) override;
};

}  // namespace midi
