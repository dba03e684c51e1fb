#pragma once

// The device side of the software MIDI service: what a person does by plugging things in, what a
// driver does by naming them, and what the hardware sends and gets. All of it may be done on any
// thread. The service owns these objects and keeps them while they are unplugged, so that they can
// come back; what is plugged in anew gets new handles.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MidiService.h"

namespace platform::software {

class SoftwareMidiService;
class Device;

/// Anything with a handle and properties. Every change of a property is a setup change.
class Object {
public:
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    /// 0 while it is not plugged in.
    [[nodiscard]] MIDIObjectRef handle() const;
    [[nodiscard]] bool isPlugged() const { return handle() != 0; }

    void setStringProperty(std::string_view property, std::string_view value);
    void setIntegerProperty(std::string_view property, std::int32_t value);
    void setDataProperty(std::string_view property, std::vector<std::uint8_t> value);
    void removeProperty(std::string_view property);
    [[nodiscard]] std::optional<std::string> stringProperty(std::string_view property) const;
    [[nodiscard]] std::optional<std::int32_t> integerProperty(std::string_view property) const;

    void setName(std::string_view name) { setStringProperty(kMIDIPropertyName, name); }
    void setUniqueID(std::int32_t id) { setIntegerProperty(kMIDIPropertyUniqueID, id); }
    /// 0 if it has none.
    [[nodiscard]] std::int32_t uniqueID() const {
        return integerProperty(kMIDIPropertyUniqueID).value_or(0);
    }

protected:
    Object(SoftwareMidiService& service, MIDIObjectType type, std::string_view name);

    SoftwareMidiService& service_;

private:
    friend class SoftwareMidiService;

    const MIDIObjectType type_;
    // Guarded by the service's mutex.
    MIDIObjectRef handle_ = 0;
    std::map<std::string, std::string, std::less<>> strings_;
    std::map<std::string, std::int32_t, std::less<>> integers_;
    std::map<std::string, std::vector<std::uint8_t>, std::less<>> datas_;
};

/// A group of endpoints of a device.
class Entity final : public Object {
private:
    friend class SoftwareMidiService;
    Entity(SoftwareMidiService& service, MIDIObjectType type, Device& device)
        : Object(service, type, {}), device_(device) {}

    Device& device_;
};

/// A port of a device or, without a device, of another program. It comes and goes with its device,
/// or by itself.
class Endpoint : public Object {
public:
    void plug();
    void unplug();

    /// The IDs of what is connected to this port, for its display name.
    void setConnectedUniqueIDs(std::span<const std::int32_t> ids);

protected:
    Endpoint(SoftwareMidiService& service, MIDIObjectType type, std::string_view name,
             Entity* entity)
        : Object(service, type, name), entity_(entity) {}

private:
    friend class SoftwareMidiService;

    Entity* const entity_;
};

/// Where MIDI comes from.
class Source final : public Endpoint {
public:
    /// Hands the list to every input port connected to this source. The read callbacks run on the
    /// calling thread, which so plays the service's input thread.
    void emit(const MIDIPacketList& list);
    /// One packet for now, of at most 256 bytes.
    void emit(std::span<const std::uint8_t> bytes);

private:
    friend class SoftwareMidiService;
    Source(SoftwareMidiService& service, MIDIObjectType type, std::string_view name, Entity* entity)
        : Endpoint(service, type, name, entity) {}
};

/// Where MIDI goes to.
class Destination final : public Endpoint {
public:
    using Handler = std::function<void(const MIDIPacketList&)>;

    /// Takes each list that is sent here, within the sender's call of MIDISend.
    void onReceive(Handler handler);

private:
    friend class SoftwareMidiService;
    Destination(SoftwareMidiService& service, MIDIObjectType type, std::string_view name,
                Entity* entity)
        : Endpoint(service, type, name, entity) {}

    std::shared_ptr<const Handler> handler_;  // guarded by the service's mutex
};

/// Hardware with ports; or, external, what a person says is plugged into such a port.
class Device final : public Object {
public:
    /// Endpoints go to the entity added last; the first one comes by itself.
    Entity& addEntity();
    Source& addSource(std::string_view name);
    Destination& addDestination(std::string_view name);

    /// With all its entities and endpoints, under new handles.
    void plug();
    void unplug();

private:
    friend class SoftwareMidiService;
    Device(SoftwareMidiService& service, std::string_view name, bool external);

    const bool external_;
    // Guarded by the service's mutex, and owned by the service.
    Entity* entity_ = nullptr;    // the one added last
    std::vector<Object*> parts_;  // entities and endpoints
};

}  // namespace platform::software
