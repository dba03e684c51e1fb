#include "midi/endpointLookup.h"

#include "midi/caseInsensitive.h"
#include "midi/endpointDirection.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::MidiService;
using platform::noErr;

namespace {

std::optional<std::string> nameProperty(MidiService& service, platform::MIDIObjectRef object) {
    std::string name;
    if (service.MIDIObjectGetStringProperty(object, platform::kMIDIPropertyName, &name) != noErr) {
        return std::nullopt;
    }
    return name;
}

/// None for a published endpoint, which has no entity.
std::optional<std::string> deviceName(MidiService& service, MIDIEndpointRef endpoint) {
    platform::MIDIEntityRef entity = 0;
    platform::MIDIDeviceRef device = 0;
    if (service.MIDIEndpointGetEntity(endpoint, &entity) != noErr ||
        service.MIDIEntityGetDevice(entity, &device) != noErr) {
        return std::nullopt;
    }
    return nameProperty(service, device);
}

bool stillExists(MidiService& service, const EndpointDirection& direction,
                 MIDIEndpointRef endpoint) {
    return firstEndpoint(service, direction,
                         [=](MIDIEndpointRef present) { return present == endpoint; }) != 0;
}

MIDIEndpointRef withUniqueID(MidiService& service, const EndpointDirection& direction,
                             std::int32_t uniqueID) {
    return firstEndpoint(service, direction, [&](MIDIEndpointRef endpoint) {
        std::int32_t its = 0;
        return service.MIDIObjectGetIntegerProperty(endpoint, platform::kMIDIPropertyUniqueID,
                                                    &its) == noErr &&
               its == uniqueID;
    });
}

MIDIEndpointRef withName(MidiService& service, const EndpointDirection& direction,
                         std::string_view name) {
    return firstEndpoint(service, direction, [&](MIDIEndpointRef endpoint) {
        return ZQMIDIGetEndpointName(service, endpoint) == name;
    });
}

}  // namespace

std::optional<std::string> ZQMIDIGetEndpointName(MidiService& service, MIDIEndpointRef endpoint) {
    std::optional<std::string> device = deviceName(service, endpoint);
    std::optional<std::string> own = nameProperty(service, endpoint);
    if (!own) {
        return device;
    }
    if (!device || startsWithIgnoringCase(*own, *device)) {
        return own;
    }
    return *device + ' ' + *own;
}

bool ZQMIDIDoesSourceStillExist(MidiService& service, MIDIEndpointRef source) {
    return stillExists(service, sources, source);
}

MIDIEndpointRef ZQMIDIGetSourceByUniqueID(MidiService& service, std::int32_t uniqueID) {
    return withUniqueID(service, sources, uniqueID);
}

MIDIEndpointRef ZQMIDIGetSourceByName(MidiService& service, std::string_view name) {
    return withName(service, sources, name);
}

bool ZQMIDIDoesDestinationStillExist(MidiService& service, MIDIEndpointRef destination) {
    return stillExists(service, destinations, destination);
}

MIDIEndpointRef ZQMIDIGetDestinationByUniqueID(MidiService& service, std::int32_t uniqueID) {
    return withUniqueID(service, destinations, uniqueID);
}

MIDIEndpointRef ZQMIDIGetDestinationByName(MidiService& service, std::string_view name) {
    return withName(service, destinations, name);
}

}  // namespace midi
