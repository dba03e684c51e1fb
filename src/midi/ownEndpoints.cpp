#include "midi/ownEndpoints.h"

#include "midi/ZQMIDIProcess.h"
#include "midi/endpointDirection.h"
#include "midi/endpointLookup.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::MidiService;

bool ZQMIDIIsEndpointLocalVirtual(const ZQMIDIProcess& process, MIDIEndpointRef endpoint) {
    std::int32_t owner = 0;
    return process.service().MIDIObjectGetIntegerProperty(endpoint, ZQMIDIOwnerPID, &owner) ==
               platform::noErr &&
           owner == process.processID();
}

bool ZQMIDIIsUniqueIDInUse(MidiService& service, std::int32_t uniqueID) {
    // The value lives through the whole search: a read that fails leaves the previous one.
    std::int32_t its = 0;
    const auto hasIt = [&](MIDIEndpointRef endpoint) {
        static_cast<void>(
            service.MIDIObjectGetIntegerProperty(endpoint, platform::kMIDIPropertyUniqueID, &its));
        return its == uniqueID;
    };
    return firstEndpoint(service, sources, hasIt) != 0 ||
           firstEndpoint(service, destinations, hasIt) != 0;
}

std::int32_t ZQMIDIAllocateUniqueID(ZQMIDIProcess& process) {
    std::int32_t candidate = process.nextUniqueIDCandidate();
    while (ZQMIDIIsUniqueIDInUse(process.service(), candidate)) {
        candidate = process.nextUniqueIDCandidate();
    }
    return candidate;
}

bool ZQMIDIIsEndpointNameTaken(MidiService& service, std::string_view name) {
    return ZQMIDIGetSourceByName(service, name) != 0 ||
           ZQMIDIGetDestinationByName(service, name) != 0;
}

}  // namespace midi
