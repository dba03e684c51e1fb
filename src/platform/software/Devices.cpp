#include "platform/software/Devices.h"

#include <algorithm>
#include <utility>

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {

namespace {

template <typename Map>
auto valueOf(const Map& map, std::string_view key) -> std::optional<typename Map::mapped_type> {
    const auto found = map.find(key);
    return found == map.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

Object::Object(SoftwareMidiService& service, MIDIObjectType type, std::string_view name)
    : service_(service), type_(type) {
    strings_.emplace(kMIDIPropertyName, name);
}

MIDIObjectRef Object::handle() const {
    const std::lock_guard lock(service_.mutex_);
    return handle_;
}

void Object::setStringProperty(std::string_view property, std::string_view value) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    strings_.insert_or_assign(std::string(property), std::string(value));
    service_.reportChange(lock);
}

void Object::setIntegerProperty(std::string_view property, std::int32_t value) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    integers_.insert_or_assign(std::string(property), value);
    service_.reportChange(lock);
}

void Object::setDataProperty(std::string_view property, std::vector<std::uint8_t> value) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    datas_.insert_or_assign(std::string(property), std::move(value));
    service_.reportChange(lock);
}

void Object::removeProperty(std::string_view property) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    strings_.erase(std::string(property));
    integers_.erase(std::string(property));
    datas_.erase(std::string(property));
    service_.reportChange(lock);
}

std::optional<std::string> Object::stringProperty(std::string_view property) const {
    const std::lock_guard lock(service_.mutex_);
    return valueOf(strings_, property);
}

std::optional<std::int32_t> Object::integerProperty(std::string_view property) const {
    const std::lock_guard lock(service_.mutex_);
    return valueOf(integers_, property);
}

void Endpoint::plug() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    service_.appear(lock, *this);
}

void Endpoint::unplug() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    service_.vanish(lock, *this);
}

void Endpoint::setConnectedUniqueIDs(std::span<const std::int32_t> ids) {
    std::vector<std::uint8_t> data;
    for (const std::int32_t id : ids) {
        const auto bits = static_cast<std::uint32_t>(id);
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            data.push_back(static_cast<std::uint8_t>(bits >> shift));
        }
    }
    setDataProperty(kMIDIPropertyConnectionUniqueID, std::move(data));
}

void Source::emit(const MIDIPacketList& list) {
    const MIDIEndpointRef source = handle();
    if (source != 0) {
        service_.deliverFrom(source, list);
    }
}

void Source::emit(std::span<const std::uint8_t> bytes) {
    emit(*makeOnePacketList(bytes));
}

void Destination::onReceive(Handler handler) {
    const std::lock_guard lock(service_.mutex_);
    handler_ = handler ? std::make_shared<const Handler>(std::move(handler)) : nullptr;
}

Device::Device(SoftwareMidiService& service, std::string_view name, bool external)
    : Object(service, external ? kMIDIObjectType_ExternalDevice : kMIDIObjectType_Device, name),
      external_(external) {}

Entity& Device::addEntity() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    return service_.addEntity(lock, *this);
}

Source& Device::addSource(std::string_view name) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    return service_.addEndpoint<Source>(
        lock, external_ ? kMIDIObjectType_ExternalSource : kMIDIObjectType_Source, name, this);
}

Destination& Device::addDestination(std::string_view name) {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    return service_.addEndpoint<Destination>(
        lock, external_ ? kMIDIObjectType_ExternalDestination : kMIDIObjectType_Destination, name,
        this);
}

void Device::plug() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    service_.appear(lock, *this);
    for (Object* part : parts_) {
        service_.appear(lock, *part);
    }
}

void Device::unplug() {
    const SoftwareMidiService::Lock lock(service_.mutex_);
    for (Object* part : parts_) {
        service_.vanish(lock, *part);
    }
    service_.vanish(lock, *this);
}

Device& SoftwareMidiService::addDevice(std::string_view name) {
    const Lock lock(mutex_);
    return own(lock, std::unique_ptr<Device>(new Device(*this, name, false)));
}

Device& SoftwareMidiService::addExternalDevice(std::string_view name) {
    const Lock lock(mutex_);
    return own(lock, std::unique_ptr<Device>(new Device(*this, name, true)));
}

Source& SoftwareMidiService::addSource(std::string_view name) {
    const Lock lock(mutex_);
    return addEndpoint<Source>(lock, kMIDIObjectType_Source, name, nullptr);
}

Destination& SoftwareMidiService::addDestination(std::string_view name) {
    const Lock lock(mutex_);
    return addEndpoint<Destination>(lock, kMIDIObjectType_Destination, name, nullptr);
}

Entity& SoftwareMidiService::addEntity(const Lock& lock, Device& device) {
    const MIDIObjectType type =
        device.external_ ? kMIDIObjectType_ExternalEntity : kMIDIObjectType_Entity;
    auto& entity = own(lock, std::unique_ptr<Entity>(new Entity(*this, type, device)));
    device.entity_ = &entity;
    device.parts_.push_back(&entity);
    if (device.handle_ == 0) {
        vanish(lock, entity);
    }
    return entity;
}

template <typename Kind>
Kind& SoftwareMidiService::addEndpoint(const Lock& lock, MIDIObjectType type, std::string_view name,
                                       Device* device) {
    if (device != nullptr && device->entity_ == nullptr) {
        addEntity(lock, *device);
    }
    Entity* const entity = device == nullptr ? nullptr : device->entity_;
    auto& endpoint = own(lock, std::unique_ptr<Kind>(new Kind(*this, type, name, entity)));
    if (device != nullptr) {
        device->parts_.push_back(&endpoint);
        if (device->handle_ == 0) {
            vanish(lock, endpoint);
        }
    }
    return endpoint;
}

template <typename Kind>
Kind& SoftwareMidiService::own(const Lock& lock, std::unique_ptr<Kind> object) {
    Kind& owned = *object;
    owned.integers_.emplace(kMIDIPropertyUniqueID, ++lastUniqueID_);
    objects_.push_back(std::move(object));
    appear(lock, owned);
    return owned;
}

void SoftwareMidiService::appear(const Lock& lock, Object& object) {
    if (object.handle_ != 0) {
        return;
    }
    object.handle_ = ++lastObject_;
    present_.emplace(object.handle_, &object);
    if (object.type_ == kMIDIObjectType_Source) {
        sources_.push_back(object.handle_);
    } else if (object.type_ == kMIDIObjectType_Destination) {
        destinations_.push_back(object.handle_);
    }
    reportChange(lock);
}

ServiceState SoftwareMidiService::state() {
    const Lock lock(mutex_);
    ServiceState state;
    state.hasDestination =
        std::any_of(destinations_.begin(), destinations_.end(), [this](MIDIEndpointRef handle) {
            const auto& integers = present_.at(handle)->integers_;
            const auto offline = integers.find(kMIDIPropertyOffline);
            return published_.count(handle) == 0 &&
                   (offline == integers.end() || offline->second == 0);
        });
    return state;
}

void SoftwareMidiService::vanish(const Lock& lock, Object& object) {
    if (object.handle_ != 0) {
        withdraw(lock, object);
        reportChange(lock);
    }
}

void SoftwareMidiService::withdraw(const Lock&, Object& object) {
    present_.erase(object.handle_);
    std::erase(sources_, object.handle_);
    std::erase(destinations_, object.handle_);
    for (auto& [handle, port] : ports_) {
        port.connections.erase(object.handle_);
    }
    object.handle_ = 0;
}

}  // namespace platform::software
