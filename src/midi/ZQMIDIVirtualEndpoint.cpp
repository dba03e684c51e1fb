#include "midi/ZQMIDIVirtualEndpoint.h"

#include "midi/ZQMIDIManager.h"
#include "midi/ZQMIDIProcess.h"
#include "midi/ownEndpoints.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::noErr;

bool ZQMIDIVirtualEndpoint::isPrivate() const {
    std::int32_t isPrivate = 0;
    return service().MIDIObjectGetIntegerProperty(midiEndpointRef(), platform::kMIDIPropertyPrivate,
                                                  &isPrivate) == noErr &&
           isPrivate != 0;
}

void ZQMIDIVirtualEndpoint::makePrivate(bool isPrivate) {
    service().MIDIObjectSetIntegerProperty(midiEndpointRef(), platform::kMIDIPropertyPrivate,
                                           isPrivate ? 1 : 0);
}

void ZQMIDIVirtualEndpoint::publish(const std::function<MIDIEndpointRef()>& create) {
    ZQMIDIProcess& process = manager().process();
    manager().disableNotifications();
    const MIDIEndpointRef endpoint = create();
    std::int32_t uniqueID = 0;
    // Only this answer means that the endpoint has no unique ID yet.
    if (service().MIDIObjectGetIntegerProperty(endpoint, platform::kMIDIPropertyUniqueID,
                                               &uniqueID) == platform::kMIDIUnknownProperty) {
        service().MIDIObjectSetIntegerProperty(endpoint, platform::kMIDIPropertyUniqueID,
                                               ZQMIDIAllocateUniqueID(process));
    }
    service().MIDIObjectSetIntegerProperty(endpoint, ZQMIDIOwnerPID, process.processID());
    manager().enableNotifications();
    setMIDIEndpointRef(endpoint);
    setPropertiesFromMIDIEndpoint();
}

void ZQMIDIVirtualEndpoint::withdraw() {
    manager().disableNotifications();
    if (midiEndpointRef() != 0) {
        service().MIDIEndpointDispose(midiEndpointRef());
    }
    manager().enableNotifications();
    stopIO();
}

}  // namespace midi
