#include "midi/ZQMIDIRealSource.h"

#include "midi/ZQMIDIManager.h"
#include "midi/endpointLookup.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::MIDIPortRef;

ZQMIDIRealSource::~ZQMIDIRealSource() {
    stopIO();  // here, while the read callback still finds a whole object
}

ZQMIDIRealSource& ZQMIDIRealSource::initWithCoder(ZQMIDIManager& manager,
                                                  const archive::KeyedDecoder& coder) {
    return manager.realSourceWithDescriptor(ZQMIDIEndpointDescriptor(coder));
}

void ZQMIDIRealSource::processMIDIPacketList(const platform::MIDIPacketList& list,
                                             const void* /*sender*/) {
    receivers().deliver(list, this);
}

void ZQMIDIRealSource::midiReadProc(const platform::MIDIPacketList* list, void* readProcRefCon,
                                    void* /*srcConnRefCon*/) {
    auto* const source = static_cast<ZQMIDIRealSource*>(readProcRefCon);
    source->processMIDIPacketList(*list, source);
}

MIDIEndpointRef ZQMIDIRealSource::findEndpoint() const {
    MIDIEndpointRef found = midiEndpointRef();
    if (found != 0 && !ZQMIDIDoesSourceStillExist(service(), found)) {
        found = 0;
    }
    if (found == 0) {
        found = ZQMIDIGetSourceByUniqueID(service(), uniqueID());
    }
    if (found == 0 && name()) {
        found = ZQMIDIGetSourceByName(service(), *name());
    }
    return found;
}

MIDIPortRef ZQMIDIRealSource::openPort(MIDIEndpointRef endpoint) {
    MIDIPortRef port = 0;
    service().MIDIInputPortCreate(manager().midiClientRef(), "ZQMIDIRealSource", midiReadProc, this,
                                  &port);
    if (port != 0) {
        service().MIDIPortConnectSource(port, endpoint, nullptr);
    }
    return port;
}

void ZQMIDIRealSource::closePort(MIDIPortRef port, MIDIEndpointRef endpoint) {
    service().MIDIPortDisconnectSource(port, endpoint);
    service().MIDIPortDispose(port);
}

}  // namespace midi
