// Handles and properties.

#include <algorithm>
#include <utility>

#include "platform/alsa/AlsaMidiService.h"

namespace platform::alsa {
namespace {

/// Under which the process that has published an endpoint is found.
constexpr std::string_view ownerProcess = "ZQMIDIOwnerPID";

}  // namespace

bool AlsaMidiService::exists(const Lock&, MIDIObjectRef object) const {
    return list_.find(object) != nullptr || list_.findDevice(object) != nullptr ||
           published_.count(object) != 0;
}

std::optional<std::string> AlsaMidiService::stringProperty(const Lock&, MIDIObjectRef object,
                                                           std::string_view property) const {
    if (const auto own = published_.find(object); own != published_.end()) {
        const auto found = own->second.strings.find(property);
        return found == own->second.strings.end() ? std::nullopt : std::optional(found->second);
    }
    const ListedEndpoint* const endpoint = list_.find(object);
    if (endpoint != nullptr && property == kMIDIPropertyName) {
        return endpoint->name();
    }
    const ListedDevice* const device = list_.findDevice(object);
    if (device == nullptr || device->handle != object) {
        return std::nullopt;
    }
    if (property == kMIDIPropertyName) {
        return device->name;
    }
    if (property == kMIDIPropertyDriverOwner && device->isBus) {
        return std::string(interApplicationBusDriver);
    }
    return std::nullopt;
}

std::optional<std::int32_t> AlsaMidiService::integerProperty(const Lock& lock, MIDIObjectRef object,
                                                             std::string_view property) const {
    if (const auto own = published_.find(object); own != published_.end()) {
        const auto found = own->second.integers.find(property);
        return found == own->second.integers.end() ? std::nullopt : std::optional(found->second);
    }
    const ListedEndpoint* const endpoint = list_.find(object);
    if (endpoint == nullptr) {
        return std::nullopt;
    }
    if (property == kMIDIPropertyUniqueID) {
        return endpoint->uniqueID;
    }
    if (property == kMIDIPropertyOffline) {
        return hasGone(lock, endpoint->port) || output_.isOffline(object) ? 1 : 0;
    }
    return property == ownerProcess ? endpoint->port.ownerPID : std::nullopt;
}

OSStatus AlsaMidiService::MIDIObjectGetStringProperty(MIDIObjectRef object,
                                                      std::string_view property,
                                                      std::string* value) {
    const Lock lock(mutex_);
    if (!exists(lock, object)) {
        return kMIDIObjectNotFound;
    }
    const std::optional<std::string> found = stringProperty(lock, object, property);
    if (!found) {
        return integerProperty(lock, object, property) ? kMIDIWrongPropertyType
                                                       : kMIDIUnknownProperty;
    }
    *value = *found;
    return noErr;
}

OSStatus AlsaMidiService::MIDIObjectGetIntegerProperty(MIDIObjectRef object,
                                                       std::string_view property,
                                                       std::int32_t* value) {
    const Lock lock(mutex_);
    if (!exists(lock, object)) {
        return kMIDIObjectNotFound;
    }
    if (property == kMIDIPropertyOffline) {
        readAnnouncementsAhead(lock);
    }
    const std::optional<std::int32_t> found = integerProperty(lock, object, property);
    if (!found) {
        return stringProperty(lock, object, property) ? kMIDIWrongPropertyType
                                                      : kMIDIUnknownProperty;
    }
    *value = *found;
    return noErr;
}

OSStatus AlsaMidiService::MIDIObjectGetDataProperty(MIDIObjectRef object, std::string_view property,
                                                    std::vector<std::uint8_t>* /*value*/) {
    const Lock lock(mutex_);
    if (!exists(lock, object)) {
        return kMIDIObjectNotFound;
    }
    const bool hasOtherType =
        stringProperty(lock, object, property) || integerProperty(lock, object, property);
    return hasOtherType ? kMIDIWrongPropertyType : kMIDIUnknownProperty;
}

OSStatus AlsaMidiService::MIDIObjectSetStringProperty(MIDIObjectRef object,
                                                      std::string_view property,
                                                      std::string_view value) {
    const Lock lock(mutex_);
    const auto own = published_.find(object);
    if (own == published_.end()) {
        return exists(lock, object) ? kMIDIUnknownEndpoint : kMIDIObjectNotFound;
    }
    if (property == kMIDIPropertyName && !input_.rename(own->second.number, value)) {
        return kMIDIServerStartErr;
    }
    own->second.strings.insert_or_assign(std::string(property), std::string(value));
    return noErr;
}

OSStatus AlsaMidiService::MIDIObjectSetIntegerProperty(MIDIObjectRef object,
                                                       std::string_view property,
                                                       std::int32_t value) {
    const Lock lock(mutex_);
    const auto own = published_.find(object);
    if (own == published_.end()) {
        return exists(lock, object) ? kMIDIUnknownEndpoint : kMIDIObjectNotFound;
    }
    if (property == kMIDIPropertyUniqueID) {
        const MIDIEndpointRef owner = endpointWithUniqueID(lock, value);
        if (value == 0 || (owner != 0 && owner != object)) {
            return kMIDIIDNotUnique;
        }
    }
    if (property == kMIDIPropertyPrivate) {
        input_.hide(own->second.number, own->second.direction, value != 0);
    }
    own->second.integers.insert_or_assign(std::string(property), value);
    return noErr;
}

MIDIEndpointRef AlsaMidiService::endpointWithUniqueID(const Lock& lock,
                                                      std::int32_t uniqueID) const {
    for (const auto* const endpoints : {&sources_, &destinations_}) {
        const auto found =
            std::find_if(endpoints->begin(), endpoints->end(), [&](MIDIEndpointRef endpoint) {
                return integerProperty(lock, endpoint, kMIDIPropertyUniqueID) == uniqueID;
            });
        if (found != endpoints->end()) {
            return *found;
        }
    }
    return 0;
}

OSStatus AlsaMidiService::MIDIObjectFindByUniqueID(std::int32_t uniqueID, MIDIObjectRef* object,
                                                   MIDIObjectType* type) {
    const Lock lock(mutex_);
    const MIDIEndpointRef found = endpointWithUniqueID(lock, uniqueID);
    if (found == 0) {
        return kMIDIObjectNotFound;
    }
    *object = found;
    *type = directionOf(lock, found) == Direction::Source ? kMIDIObjectType_Source
                                                          : kMIDIObjectType_Destination;
    return noErr;
}

std::optional<Direction> AlsaMidiService::directionOf(const Lock& lock,
                                                      MIDIEndpointRef endpoint) const {
    const std::optional<PortDescription> port = portOf(lock, endpoint);
    return port ? std::optional(port->direction) : std::nullopt;
}

std::optional<PortDescription> AlsaMidiService::portOf(const Lock&,
                                                       MIDIEndpointRef endpoint) const {
    if (const ListedEndpoint* const listed = list_.find(endpoint)) {
        return listed->port;
    }
    const auto own = published_.find(endpoint);
    if (own == published_.end()) {
        return std::nullopt;
    }
    PortDescription port;
    port.address = {input_.client(), own->second.number};
    port.direction = own->second.direction;
    return port;
}

std::vector<MIDIEndpointRef> AlsaMidiService::endpointsOf(const Lock&, Direction direction) const {
    std::vector<MIDIEndpointRef> endpoints;
    for (const ListedEndpoint& endpoint : list_.endpoints()) {
        if (endpoint.port.direction == direction) {
            endpoints.push_back(endpoint.handle);
        }
    }
    for (const auto& [handle, own] : published_) {
        if (own.direction == direction) {
            endpoints.push_back(handle);
        }
    }
    return endpoints;
}

OSStatus AlsaMidiService::MIDIEndpointGetEntity(MIDIEndpointRef endpoint, MIDIEntityRef* entity) {
    const Lock lock(mutex_);
    const ListedEndpoint* const found = list_.find(endpoint);
    if (found == nullptr || found->entity == 0) {
        return kMIDIObjectNotFound;
    }
    *entity = found->entity;
    return noErr;
}

OSStatus AlsaMidiService::MIDIEntityGetDevice(MIDIEntityRef entity, MIDIDeviceRef* device) {
    const Lock lock(mutex_);
    const ListedDevice* const found = list_.findDevice(entity);
    if (found == nullptr || found->entity != entity) {
        return kMIDIObjectNotFound;
    }
    *device = found->handle;
    return noErr;
}

}  // namespace platform::alsa
