#pragma once

#include "midi/ZQMIDIRealEndpoint.h"

namespace midi {

/// A source of the system: hands every packet list that arrives to its receivers.
class ZQMIDIRealSource final : public ZQMIDIRealEndpoint {
public:
    ZQMIDIRealSource(ZQMIDIManager& manager, platform::MIDIEndpointRef endpoint)
        : ZQMIDIRealEndpoint(manager, endpoint) {}
    ZQMIDIRealSource(ZQMIDIManager& manager, const ZQMIDIEndpointDescriptor& descriptor)
        : ZQMIDIRealEndpoint(manager, descriptor) {}
    ~ZQMIDIRealSource() override;

    /// The manager's object for the archived endpoint: decoding makes no second one.
    [[nodiscard]] static ZQMIDIRealSource& initWithCoder(ZQMIDIManager& manager,
                                                         const archive::KeyedDecoder& coder);
    [[nodiscard]] std::string_view archivedClassName() const override { return "ZQMIDIRealSource"; }

    /// To every receiver, with this source as sender.
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override;

private:
    static void midiReadProc(const platform::MIDIPacketList* list, void* readProcRefCon,
                             void* srcConnRefCon);
    [[nodiscard]] platform::MIDIEndpointRef findEndpoint() const override;
    platform::MIDIPortRef openPort(platform::MIDIEndpointRef endpoint) override;
    void closePort(platform::MIDIPortRef port, platform::MIDIEndpointRef endpoint) override;
};

}  // namespace midi
