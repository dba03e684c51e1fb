#include "midi/ZQMIDIRealEndpoint.h"

#include <utility>

namespace midi {

using platform::MIDIEndpointRef;
using platform::MIDIPortRef;

ZQMIDIRealEndpoint::ZQMIDIRealEndpoint(ZQMIDIManager& manager, MIDIEndpointRef endpoint)
    : ZQMIDIEndpoint(manager, endpoint) {}

ZQMIDIRealEndpoint::ZQMIDIRealEndpoint(ZQMIDIManager& manager,
                                       const ZQMIDIEndpointDescriptor& descriptor)
    : ZQMIDIEndpoint(manager, descriptor.name(), descriptor.uniqueID()) {}

void ZQMIDIRealEndpoint::syncWithMIDIEndpoint() {
    const MIDIEndpointRef candidate = findEndpoint();
    if (candidate != midiEndpointRef()) {
        stopIO();
        bindTo(candidate);
        startOrStopIO();
    }
    setPropertiesFromMIDIEndpoint();
}

void ZQMIDIRealEndpoint::bindTo(MIDIEndpointRef endpoint) {
    MIDIPortRef openedMeanwhile = 0;
    MIDIEndpointRef before = 0;
    {
        const std::lock_guard lock(ioMutex_);
        openedMeanwhile = midiPortRef_.exchange(0);
        before = midiEndpointRef();
        setMIDIEndpointRef(endpoint);
    }
    if (openedMeanwhile != 0) {
        closePort(openedMeanwhile, before);
    }
}

void ZQMIDIRealEndpoint::startIO() {
    const std::lock_guard lock(ioMutex_);
    if (midiEndpointRef() != 0 && !ioIsRunning()) {
        midiPortRef_ = openPort(midiEndpointRef());
    }
}

void ZQMIDIRealEndpoint::stopIO() {
    MIDIPortRef port = 0;
    MIDIEndpointRef endpoint = 0;
    {
        const std::lock_guard lock(ioMutex_);
        port = midiPortRef_.exchange(0);
        endpoint = midiEndpointRef();
    }
    if (port != 0) {
        closePort(port, endpoint);
    }
}

}  // namespace midi
