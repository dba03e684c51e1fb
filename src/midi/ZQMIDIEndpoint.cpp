#include "midi/ZQMIDIEndpoint.h"

#include <utility>
#include <vector>

#include "midi/ZQMIDIManager.h"
#include "midi/caseInsensitive.h"
#include "midi/endpointLookup.h"

namespace midi {

using platform::MIDIEndpointRef;
using platform::noErr;

namespace {

/// The unique IDs in the data of the connection property. Bytes behind the last whole ID are none.
std::vector<std::int32_t> connectedUniqueIDs(const std::vector<std::uint8_t>& data) {
    std::vector<std::int32_t> ids;
    for (std::size_t offset = 0; offset + 4 <= data.size(); offset += 4) {
        std::uint32_t id = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            id = id << 8U | data[offset + i];
        }
        if (id != 0) {
            ids.push_back(static_cast<std::int32_t>(id));
        }
    }
    return ids;
}

std::optional<std::string> nameOfConnectedDevice(platform::MidiService& service,
                                                 std::int32_t uniqueID) {
    platform::MIDIObjectRef object = 0;
    platform::MIDIObjectType type = platform::kMIDIObjectType_Other;
    // Whether something was found shows in the type.
    static_cast<void>(service.MIDIObjectFindByUniqueID(uniqueID, &object, &type));
    if (type == platform::kMIDIObjectType_ExternalDevice) {
        std::string name;
        const bool named = service.MIDIObjectGetStringProperty(object, platform::kMIDIPropertyName,
                                                               &name) == noErr;
        return named ? std::optional(name) : std::nullopt;
    }
    if (type == platform::kMIDIObjectType_ExternalSource ||
        type == platform::kMIDIObjectType_ExternalDestination) {
        return ZQMIDIGetEndpointName(service, object);
    }
    return std::nullopt;
}

}  // namespace

ZQMIDIEndpoint::ZQMIDIEndpoint(ZQMIDIManager& manager) : manager_(manager) {}

ZQMIDIEndpoint::ZQMIDIEndpoint(ZQMIDIManager& manager, std::optional<std::string> name,
                               std::int32_t uniqueID)
    : manager_(manager), name_(std::move(name)), uniqueID_(uniqueID) {}

ZQMIDIEndpoint::ZQMIDIEndpoint(ZQMIDIManager& manager, MIDIEndpointRef endpoint)
    : manager_(manager), midiEndpointRef_(endpoint) {
    setPropertiesFromMIDIEndpoint();
}

platform::MidiService& ZQMIDIEndpoint::service() const {
    return manager_.service();
}

void ZQMIDIEndpoint::encodeWithCoder(archive::KeyedEncoder& coder) const {
    coder.encodeObject("name", name_);
    coder.encodeInt32("uniqueID", uniqueID_);
    coder.encodeObject("displayName", displayName_);
}

ZQMIDIEndpointDescriptor ZQMIDIEndpoint::descriptor() const {
    return {name_, uniqueID_};
}

void ZQMIDIEndpoint::setPropertiesFromMIDIEndpoint() {
    if (midiEndpointRef() == 0) {
        return;
    }
    setUniqueIDFromMIDIEndpoint();
    setNameFromMIDIEndpoint();
    setDisplayNameFromMIDIEndpoint();
}

void ZQMIDIEndpoint::setUniqueIDFromMIDIEndpoint() {
    static_cast<void>(service().MIDIObjectGetIntegerProperty(
        midiEndpointRef(), platform::kMIDIPropertyUniqueID, &uniqueID_));
}

void ZQMIDIEndpoint::setNameFromMIDIEndpoint() {
    name_ = ZQMIDIGetEndpointName(service(), midiEndpointRef());
}

void ZQMIDIEndpoint::setDisplayNameFromMIDIEndpoint() {
    displayName_ = namesOfConnectedDevices();
    if (!displayName_) {
        displayName_ = name_.value_or("UNKNOWN DEVICE");
    }
}

std::optional<std::string> ZQMIDIEndpoint::namesOfConnectedDevices() const {
    std::vector<std::uint8_t> data;
    if (service().MIDIObjectGetDataProperty(
            midiEndpointRef(), platform::kMIDIPropertyConnectionUniqueID, &data) != noErr) {
        return std::nullopt;
    }
    std::optional<std::string> names;
    for (const std::int32_t id : connectedUniqueIDs(data)) {
        if (const auto name = nameOfConnectedDevice(service(), id)) {
            names = names ? *names + ", " + *name : *name;
        }
    }
    return names;
}

bool ZQMIDIEndpoint::setName(std::string_view name) {
    manager_.disableNotifications();
    const bool done = service().MIDIObjectSetStringProperty(
                          midiEndpointRef(), platform::kMIDIPropertyName, name) == noErr;
    manager_.enableNotifications();
    if (done) {
        name_ = std::string(name);
        displayName_ = name_;
    }
    return done;
}

bool ZQMIDIEndpoint::setUniqueID(std::int32_t uniqueID) {
    manager_.disableNotifications();
    const bool done = service().MIDIObjectSetIntegerProperty(
                          midiEndpointRef(), platform::kMIDIPropertyUniqueID, uniqueID) == noErr;
    manager_.enableNotifications();
    if (done) {
        uniqueID_ = uniqueID;
    }
    return done;
}

std::string ZQMIDIEndpoint::displayName() const {
    // Nothing but an endpoint that was never bound lacks a display name of its own.
    const std::string shown = displayName_ ? *displayName_ : name_.value_or("UNKNOWN DEVICE");
    return isOnline() ? shown : shown + " (offline)";
}

std::weak_ordering ZQMIDIEndpoint::compareByDisplayName(const ZQMIDIEndpoint& other) const {
    return compareIgnoringCase(displayName(), other.displayName());
}

bool ZQMIDIEndpoint::isOffline() const {
    if (midiEndpointRef() == 0) {
        return true;
    }
    std::int32_t offline = 0;
    return service().MIDIObjectGetIntegerProperty(midiEndpointRef(), platform::kMIDIPropertyOffline,
                                                  &offline) == noErr &&
           offline != 0;
}

bool ZQMIDIEndpoint::isIACBus() const {
    platform::MIDIEntityRef entity = 0;
    platform::MIDIDeviceRef device = 0;
    std::string owner;
    return service().MIDIEndpointGetEntity(midiEndpointRef(), &entity) == noErr &&
           service().MIDIEntityGetDevice(entity, &device) == noErr &&
           service().MIDIObjectGetStringProperty(device, platform::kMIDIPropertyDriverOwner,
                                                 &owner) == noErr &&
           owner == platform::interApplicationBusDriver;
}

bool ZQMIDIEndpoint::isInUse() const {
    {
        const std::lock_guard lock(sendersMutex_);
        if (!senders_.empty()) {
            return true;
        }
    }
    return !receivers_.empty();
}

void ZQMIDIEndpoint::addReceiver(ZQMIDIReceiver* receiver) {
    receivers_.add(receiver);
    startOrStopIO();
}

void ZQMIDIEndpoint::removeReceiver(ZQMIDIReceiver* receiver) {
    receivers_.remove(receiver);
    startOrStopIO();
}

void ZQMIDIEndpoint::addSender(const void* sender) {
    {
        const std::lock_guard lock(sendersMutex_);
        senders_.insert(sender);
    }
    startOrStopIO();
}

void ZQMIDIEndpoint::removeSender(const void* sender) {
    {
        const std::lock_guard lock(sendersMutex_);
        senders_.erase(sender);
    }
    startOrStopIO();
}

void ZQMIDIEndpoint::startOrStopIO() {
    // Users may change on another thread in between; whoever acts last then acts on the last state.
    bool inUse = false;
    do {
        inUse = isInUse();
        if (inUse) {
            startIO();
        } else {
            stopIO();
        }
    } while (inUse != isInUse());
}

void ZQMIDIEndpoint::processMIDIPacketList(const platform::MIDIPacketList& /*list*/,
                                           const void* /*sender*/) {}

}  // namespace midi
