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
    constexpr std::string_view operation = "MIDIObjectGetStringProperty";
    if (const OSStatus failed = begin({operation, object, property}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    const Object* const found = find(lock, operation, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    return readProperty(found->strings_, property,
                        has(found->integers_, property) || has(found->datas_, property), value);
}

OSStatus SoftwareMidiService::MIDIObjectGetIntegerProperty(MIDIObjectRef object,
                                                           std::string_view property,
                                                           std::int32_t* value) {
    constexpr std::string_view operation = "MIDIObjectGetIntegerProperty";
    if (const OSStatus failed = begin({operation, object, property}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    const Object* const found = find(lock, operation, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    return readProperty(found->integers_, property,
                        has(found->strings_, property) || has(found->datas_, property), value);
}

OSStatus SoftwareMidiService::MIDIObjectGetDataProperty(MIDIObjectRef object,
                                                        std::string_view property,
                                                        std::vector<std::uint8_t>* value) {
    constexpr std::string_view operation = "MIDIObjectGetDataProperty";
    if (const OSStatus failed = begin({operation, object, property}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    const Object* const found = find(lock, operation, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    return readProperty(found->datas_, property,
                        has(found->strings_, property) || has(found->integers_, property), value);
}

OSStatus SoftwareMidiService::MIDIObjectSetStringProperty(MIDIObjectRef object,
                                                          std::string_view property,
                                                          std::string_view value) {
    constexpr std::string_view operation = "MIDIObjectSetStringProperty";
    if (const OSStatus failed = begin({operation, object, property}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    Object* const found = find(lock, operation, object);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    found->strings_.insert_or_assign(std::string(property), std::string(value));
    return noErr;
}

OSStatus SoftwareMidiService::MIDIObjectSetIntegerProperty(MIDIObjectRef object,
                                                           std::string_view property,
                                                           std::int32_t value) {
    constexpr std::string_view operation = "MIDIObjectSetIntegerProperty";
    if (const OSStatus failed = begin({operation, object, property}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    Object* const found = find(lock, operation, object);
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
    if (const OSStatus failed = begin({"MIDIObjectFindByUniqueID"}); failed != noErr) {
        return failed;
    }
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
    constexpr std::string_view operation = "MIDIEndpointGetEntity";
    if (const OSStatus failed = begin({operation, endpoint}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    const Object* const found = find(lock, operation, endpoint);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    const auto* const asEndpoint = dynamic_cast<const Endpoint*>(found);
    if (asEndpoint == nullptr) {
        misuse(operation, "not an endpoint:", endpoint);
        return kMIDIUnknownEndpoint;
    }
    if (asEndpoint->entity_ == nullptr || asEndpoint->entity_->handle_ == 0) {
        return kMIDIObjectNotFound;
    }
    *entity = asEndpoint->entity_->handle_;
    return noErr;
}

OSStatus SoftwareMidiService::MIDIEntityGetDevice(MIDIEntityRef entity, MIDIDeviceRef* device) {
    constexpr std::string_view operation = "MIDIEntityGetDevice";
    if (const OSStatus failed = begin({operation, entity}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    const Object* const found = find(lock, operation, entity);
    if (found == nullptr) {
        return kMIDIObjectNotFound;
    }
    const auto* const asEntity = dynamic_cast<const Entity*>(found);
    if (asEntity == nullptr) {
        misuse(operation, "not an entity:", entity);
        return kMIDIObjectNotFound;
    }
    if (asEntity->device_.handle_ == 0) {
        return kMIDIObjectNotFound;
    }
    *device = asEntity->device_.handle_;
    return noErr;
}

}  // namespace platform::software
