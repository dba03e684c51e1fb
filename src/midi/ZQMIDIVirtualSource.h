#pragma once

#include "midi/ZQMIDIVirtualEndpoint.h"

namespace midi {

/// A source that this process publishes: hands packet lists to every program that listens to it.
class ZQMIDIVirtualSource final : public ZQMIDIVirtualEndpoint {
public:
    ZQMIDIVirtualSource(ZQMIDIManager& manager, std::string_view name);
    /// A fresh endpoint of the archived name, which tries to take back its old unique ID.
    ZQMIDIVirtualSource(ZQMIDIManager& manager, const archive::KeyedDecoder& coder);
    ~ZQMIDIVirtualSource() override;

    [[nodiscard]] std::string_view archivedClassName() const override {
        return "ZQMIDIVirtualSource";
    }

    /// Publishes the list, unless nobody uses this source.
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override;
};

}  // namespace midi
