#include "midi/ZQMIDIVirtualDestination.h"

#include "midi/ZQMIDIManager.h"

namespace midi {

ZQMIDIVirtualDestination::ZQMIDIVirtualDestination(ZQMIDIManager& manager, std::string_view name)
    : ZQMIDIVirtualEndpoint(manager) {
    publish([&] {
        platform::MIDIEndpointRef destination = 0;
        service().MIDIDestinationCreate(manager.midiClientRef(), name, midiReadProc, this,
                                        &destination);
        return destination;
    });
}

ZQMIDIVirtualDestination::ZQMIDIVirtualDestination(ZQMIDIManager& manager,
                                                   const archive::KeyedDecoder& coder)
    : ZQMIDIVirtualDestination(manager, coder.decodeObject("name").value_or("")) {
    static_cast<void>(setUniqueID(coder.decodeInt32("uniqueID")));
}

ZQMIDIVirtualDestination::~ZQMIDIVirtualDestination() {
    withdraw();  // here, while the read callback still finds a whole object
}

void ZQMIDIVirtualDestination::processMIDIPacketList(const platform::MIDIPacketList& list,
                                                     const void* /*sender*/) {
    if (ioIsRunning()) {
        receivers().deliver(list, this);
    }
}

void ZQMIDIVirtualDestination::midiReadProc(const platform::MIDIPacketList* list,
                                            void* readProcRefCon, void* /*srcConnRefCon*/) {
    auto* const destination = static_cast<ZQMIDIVirtualDestination*>(readProcRefCon);
    destination->processMIDIPacketList(*list, destination);
}

}  // namespace midi
