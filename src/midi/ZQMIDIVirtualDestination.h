#pragma once

#include "midi/ZQMIDIVirtualEndpoint.h"

namespace midi {

/// A destination that this process publishes: hands what other programs send to its receivers.
class ZQMIDIVirtualDestination final : public ZQMIDIVirtualEndpoint {
public:
    ZQMIDIVirtualDestination(ZQMIDIManager& manager, std::string_view name);
    /// A fresh endpoint of the archived name, which tries to take back its old unique ID.
    ZQMIDIVirtualDestination(ZQMIDIManager& manager, const archive::KeyedDecoder& coder);
    ~ZQMIDIVirtualDestination() override;

    [[nodiscard]] std::string_view archivedClassName() const override {
        return "ZQMIDIVirtualDestination";
    }

    /// To every receiver, with this destination as sender, unless nobody uses it.
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override;

private:
    static void midiReadProc(const platform::MIDIPacketList* list, void* readProcRefCon,
                             void* srcConnRefCon);
};

}  // namespace midi
