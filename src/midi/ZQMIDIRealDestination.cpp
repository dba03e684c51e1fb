#include "midi/ZQMIDIRealDestination.h"

#include "midi/ZQMIDIManager.h"
#include "midi/endpointLookup.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::MIDIPortRef;

ZQMIDIRealDestination::~ZQMIDIRealDestination() {
    stopIO();
}

ZQMIDIRealDestination& ZQMIDIRealDestination::initWithCoder(ZQMIDIManager& manager,
                                                            const archive::KeyedDecoder& coder) {
    return manager.realDestinationWithDescriptor(ZQMIDIEndpointDescriptor(coder));
}

void ZQMIDIRealDestination::processMIDIPacketList(const platform::MIDIPacketList& list,
                                                  const void* /*sender*/) {
    const MIDIEndpointRef endpoint = midiEndpointRef();
    const MIDIPortRef port = midiPortRef();
    if (endpoint != 0 && port != 0) {
        service().MIDISend(port, endpoint, &list);
    }
}

MIDIEndpointRef ZQMIDIRealDestination::findEndpoint() const {
    MIDIEndpointRef found = midiEndpointRef();
    if (found != 0 && !ZQMIDIDoesDestinationStillExist(service(), found)) {
        found = 0;
    }
    if (found == 0) {
        found = ZQMIDIGetDestinationByUniqueID(service(), uniqueID());
    }
    if (found == 0 && name()) {
        found = ZQMIDIGetDestinationByName(service(), *name());
    }
    return found;
}

MIDIPortRef ZQMIDIRealDestination::openPort(MIDIEndpointRef /*endpoint*/) {
    MIDIPortRef port = 0;
    service().MIDIOutputPortCreate(manager().midiClientRef(), "ZQMIDIRealDestination", &port);
    return port;
}

void ZQMIDIRealDestination::closePort(MIDIPortRef port, MIDIEndpointRef /*endpoint*/) {
    service().MIDIPortDispose(port);
}

}  // namespace midi
