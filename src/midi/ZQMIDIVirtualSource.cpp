#include "midi/ZQMIDIVirtualSource.h"

#include "midi/ZQMIDIManager.h"

namespace midi {

ZQMIDIVirtualSource::ZQMIDIVirtualSource(ZQMIDIManager& manager, std::string_view name)
    : ZQMIDIVirtualEndpoint(manager) {
    publish([&] {
        platform::MIDIEndpointRef source = 0;
        service().MIDISourceCreate(manager.midiClientRef(), name, &source);
        return source;
    });
}

ZQMIDIVirtualSource::ZQMIDIVirtualSource(ZQMIDIManager& manager, const archive::KeyedDecoder& coder)
    : ZQMIDIVirtualSource(manager, coder.decodeObject("name").value_or("")) {
    static_cast<void>(setUniqueID(coder.decodeInt32("uniqueID")));
}

ZQMIDIVirtualSource::~ZQMIDIVirtualSource() {
    withdraw();
}

void ZQMIDIVirtualSource::processMIDIPacketList(const platform::MIDIPacketList& list,
                                                const void* /*sender*/) {
    if (ioIsRunning()) {
        service().MIDIReceived(midiEndpointRef(), &list);
    }
}

}  // namespace midi
