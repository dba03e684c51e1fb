// Handles and properties of what there is.

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {

namespace {

/// Reads a property from the map of its type. One that exists with another type is told apart.
template <typename Map>
OSStatus readProperty(const Map& map, std::string_view property, bool hasOtherType,
                      typename Map::mapped_type* value) {
    const auto found = map.find(property);
    if (found == map.end()) {
        return hasOtherType ? kMIDIWrongPropertyType : kMIDIUnknownProperty;
    }
    *value = found->second;
    return noErr;
}

template <typename Map>
bool has(const Map& map, std::string_view property) {
    return map.find(property) != map.end();
}

}  // namespace

OSStatus SoftwareMidiService::MIDIObjectGetStringProperty(MIDIObjectRef object,
                                                          std::string_view property,
                                                          std::string* value) {
    const Lock lock(mutex_);
    const Object* const found = find(lock, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    return readProperty(found->strings_, property,
                        has(found->integers_, property) || has(found->datas_, property), value);
}

OSStatus SoftwareMidiService::MIDIObjectGetIntegerProperty(MIDIObjectRef object,
                                                           std::string_view property,
                                                           std::int32_t* value) {
    const Lock lock(mutex_);
    const Object* const found = find(lock, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    return readProperty(found->integers_, property,
                        has(found->strings_, property) || has(found->datas_, property), value);
}

OSStatus SoftwareMidiService::MIDIObjectGetDataProperty(MIDIObjectRef object,
                                                        std::string_view property,
                                                        std::vector<std::uint8_t>* value) {
    const Lock lock(mutex_);
    const Object* const found = find(lock, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    return readProperty(found->datas_, property,
                        has(found->strings_, property) || has(found->integers_, property), value);
}

OSStatus SoftwareMidiService::MIDIObjectSetStringProperty(MIDIObjectRef object,
                                                          std::string_view property,
                                                          std::string_view value) {
    const Lock lock(mutex_);
    Object* const found = find(lock, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    found->strings_.insert_or_assign(std::string(property), std::string(value));
    return noErr;
}

OSStatus SoftwareMidiService::MIDIObjectSetIntegerProperty(MIDIObjectRef object,
                                                           std::string_view property,
                                                           std::int32_t value) {
    const Lock lock(mutex_);
    Object* const found = find(lock, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    if (property == kMIDIPropertyUniqueID) {
        const Object* const owner = objectWithUniqueID(lock, value);
        if (value == 0 || (owner != nullptr && owner != found)) {
            return kMIDIIDNotUnique;
        }
    }
    found->integers_.insert_or_assign(std::string(property), value);
    return noErr;
}

OSStatus SoftwareMidiService::MIDIObjectFindByUniqueID(std::int32_t uniqueID, MIDIObjectRef* object,
                                                       MIDIObjectType* type) {
    const Lock lock(mutex_);
    const Object* const found = objectWithUniqueID(lock, uniqueID);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    *object = found->handle_;
    *type = found->type_;
    return noErr;
}

OSStatus SoftwareMidiService::MIDIEndpointGetEntity(MIDIEndpointRef endpoint,
                                                    MIDIEntityRef* entity) {
    const Lock lock(mutex_);
    const Object* const found = find(lock, endpoint);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    const auto* const asEndpoint = dynamic_cast<const Endpoint*>(found);
    if (asEndpoint == nullptr) {
        return kMIDIWrongEndpointType;
    }
    if (asEndpoint->entity_ == nullptr || asEndpoint->entity_->handle_ == 0) {
        return kMIDIObjectNotFound;
    }
    *entity = asEndpoint->entity_->handle_;
    return noErr;
}

OSStatus SoftwareMidiService::MIDIEntityGetDevice(MIDIEntityRef entity, MIDIDeviceRef* device) {
    const Lock lock(mutex_);
    const Object* const found = find(lock, entity);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    const auto* const asEntity = dynamic_cast<const Entity*>(found);
    if (asEntity == nullptr) {
        return kMIDIWrongEndpointType;
    }
    if (asEntity->device_.handle_ == 0) {
        return kMIDIObjectNotFound;
    }
    *device = asEntity->device_.handle_;
    return noErr;
}

}  // namespace platform::software
