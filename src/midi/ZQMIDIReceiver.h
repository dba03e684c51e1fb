#pragma once

#include "platform/PacketList.h"

namespace midi {

/// Something that takes MIDI in: a program's own object, or another endpoint (so that a source can
/// be tied straight to a destination).
class ZQMIDIReceiver {
public:
    ZQMIDIReceiver() = default;
    ZQMIDIReceiver(const ZQMIDIReceiver&) = delete;
    ZQMIDIReceiver& operator=(const ZQMIDIReceiver&) = delete;
    virtual ~ZQMIDIReceiver() = default;

    /// `list` is valid during the call only; who keeps data copies it. A list that arrives from
    /// outside is handed over on the service's input thread, with the endpoint it came through as
    /// `sender`. No exception may leave it.
    virtual void processMIDIPacketList(const platform::MIDIPacketList& list,
                                       const void* sender) = 0;
};

}  // namespace midi
