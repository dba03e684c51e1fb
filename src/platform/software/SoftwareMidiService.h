#pragma once

// A MIDI service within this process, for tests and the demo: its devices are made, plugged in and
// pulled out by calls (see Devices.h), and no other program sees them.
//
//     SoftwareMidiService service;
//     Device& device = service.addDevice("Tormelk");
//     Destination& port = device.addDestination("Port 1");
//     port.onReceive([](const MIDIPacketList& list) { ... });
//     ...
//     device.unplug();       // reported by the next dispatch()
//
// Only what happens on the device side is reported as a setup change, never what the clients of
// this service do. Misuse is answered with an error code.

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

#include "platform/MidiService.h"
#include "platform/software/Devices.h"

namespace platform::software {

class SoftwareMidiService : public MidiService {
public:
    SoftwareMidiService();
    ~SoftwareMidiService() override;

    // Devices. A new one is plugged in, and its objects get unique IDs of their own.

    Device& addDevice(std::string_view name);
    /// A port of another program: no entity, no device.
    Source& addSource(std::string_view name);
    Destination& addDestination(std::string_view name);
    /// What is plugged into a port, known by its unique ID and in no list of endpoints.
    Device& addExternalDevice(std::string_view name);

    // Published endpoints, as other programs see them.

    /// Another program sends to a destination that was published here.
    void sendTo(MIDIEndpointRef publishedDestination, const MIDIPacketList& list);

    OSStatus MIDIClientCreate(std::string_view name, MIDINotifyProc notify, void* refCon,
                              MIDIClientRef* client) override;
    OSStatus MIDIClientDispose(MIDIClientRef client) override;
    std::uint32_t MIDIGetNumberOfSources() override;
    MIDIEndpointRef MIDIGetSource(std::uint32_t index) override;
    std::uint32_t MIDIGetNumberOfDestinations() override;
    MIDIEndpointRef MIDIGetDestination(std::uint32_t index) override;
    OSStatus MIDIObjectGetStringProperty(MIDIObjectRef object, std::string_view property,
                                         std::string* value) override;
    OSStatus MIDIObjectGetIntegerProperty(MIDIObjectRef object, std::string_view property,
                                          std::int32_t* value) override;
    OSStatus MIDIObjectGetDataProperty(MIDIObjectRef object, std::string_view property,
                                       std::vector<std::uint8_t>* value) override;
    OSStatus MIDIObjectSetStringProperty(MIDIObjectRef object, std::string_view property,
                                         std::string_view value) override;
    /// A unique ID that another object has is refused, and so is 0, which is none.
    OSStatus MIDIObjectSetIntegerProperty(MIDIObjectRef object, std::string_view property,
                                          std::int32_t value) override;
    OSStatus MIDIObjectFindByUniqueID(std::int32_t uniqueID, MIDIObjectRef* object,
                                      MIDIObjectType* type) override;
    OSStatus MIDIEndpointGetEntity(MIDIEndpointRef endpoint, MIDIEntityRef* entity) override;
    OSStatus MIDIEntityGetDevice(MIDIEntityRef entity, MIDIDeviceRef* device) override;
    OSStatus MIDIInputPortCreate(MIDIClientRef client, std::string_view name, MIDIReadProc read,
                                 void* readProcRefCon, MIDIPortRef* port) override;
    OSStatus MIDIOutputPortCreate(MIDIClientRef client, std::string_view name,
                                  MIDIPortRef* port) override;
    OSStatus MIDIPortConnectSource(MIDIPortRef port, MIDIEndpointRef source,
                                   void* srcConnRefCon) override;
    OSStatus MIDIPortDisconnectSource(MIDIPortRef port, MIDIEndpointRef source) override;
    OSStatus MIDIPortDispose(MIDIPortRef port) override;
    OSStatus MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                      const MIDIPacketList* list) override;
    void beginDelivery(MIDIEndpointRef destination) override;
    [[nodiscard]] platform::Delivery delivery(MIDIEndpointRef destination) override;
    void watchDelivery(MIDIEndpointRef destination,
                       std::function<void(const platform::Delivery&)> whenSettled) override;
    OSStatus MIDISourceCreate(MIDIClientRef client, std::string_view name,
                              MIDIEndpointRef* source) override;
    OSStatus MIDIDestinationCreate(MIDIClientRef client, std::string_view name, MIDIReadProc read,
                                   void* readProcRefCon, MIDIEndpointRef* destination) override;
    OSStatus MIDIEndpointDispose(MIDIEndpointRef endpoint) override;
    OSStatus MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) override;
    [[nodiscard]] int fileDescriptor() const override { return eventFd_; }
    void dispatch() override;
    [[nodiscard]] ServiceState state() override;

protected:
    // For a service that does more on top: that refuses, or lets a sender wait.

    /// The destination with this handle, of a device or another program; null where it is gone.
    [[nodiscard]] Destination* destination(MIDIEndpointRef handle) const;
    /// Whether an object has the handle now or had it once.
    [[nodiscard]] bool hasEverExisted(MIDIObjectRef handle) const;
    /// A list gets to a destination, whichever port it came by.
    OSStatus accept(MIDIEndpointRef destination, const MIDIPacketList& list);
    /// Clients and those who watch the state are told by the next dispatch.
    void reportChange();
    /// Makes the descriptor readable.
    void wakeUp() const;

private:
    friend class Object;
    friend class Endpoint;
    friend class Source;
    friend class Destination;
    friend class Device;

    using Lock = std::unique_lock<std::mutex>;

    struct Client {
        MIDINotifyProc notify = nullptr;
        void* refCon = nullptr;
        bool changeDue = false;
    };
    struct Port {
        bool isInput = false;
        MIDIReadProc read = nullptr;
        void* readProcRefCon = nullptr;
        std::map<MIDIEndpointRef, void*> connections;  // with each connection's own constant
    };
    struct Published {
        MIDIReadProc read = nullptr;  // none for a source
        void* readProcRefCon = nullptr;
    };
    /// What became of what was sent to a destination.
    struct Account {
        platform::Delivery delivery;
        std::function<void(const platform::Delivery&)> whenSettled;
    };
    struct RunningCallback {
        MIDIObjectRef object = 0;  // the port or the published destination
        std::thread::id thread;
    };

    // A function that takes a lock needs the mutex held.
    // SoftwareMidiService.cpp, Properties.cpp, PublishedEndpoints.cpp: the operations.
    [[nodiscard]] Object* find(const Lock&, MIDIObjectRef object) const;
    [[nodiscard]] Port* findPort(const Lock&, MIDIPortRef port, bool input);
    [[nodiscard]] Object* objectWithUniqueID(const Lock&, std::int32_t uniqueID) const;
    [[nodiscard]] OSStatus createPort(MIDIClientRef client, Port port, MIDIPortRef* handle);
    [[nodiscard]] OSStatus publish(MIDIClientRef client, std::unique_ptr<Endpoint> endpoint,
                                   MIDIReadProc read, void* refCon, MIDIEndpointRef* handle);

    // Delivery.cpp: what goes through the service.
    void deliverFrom(MIDIEndpointRef source, const MIDIPacketList& list);
    void deliverTo(Lock& lock, MIDIEndpointRef destination, const MIDIPacketList& list);
    void runCallback(Lock& lock, MIDIObjectRef object, const std::function<void()>& callback);
    void waitForCallbacks(Lock& lock, MIDIObjectRef object);

    // Accounts.cpp: what became of what was sent.
    [[nodiscard]] OSStatus lose(const Lock&, MIDIEndpointRef destination,
                                const MIDIPacketList& list);
    [[nodiscard]] std::vector<std::function<void()>> dueWatches(const Lock&);

    // Devices.cpp: the device side.
    template <typename Kind>
    Kind& own(const Lock&, std::unique_ptr<Kind> object);
    Entity& addEntity(const Lock&, Device& device);
    template <typename Kind>
    Kind& addEndpoint(const Lock&, MIDIObjectType type, std::string_view name, Device* device);
    void appear(const Lock&, Object& object);
    void vanish(const Lock&, Object& object);
    void withdraw(const Lock&, Object& object);  // unreported
    void reportChange(const Lock&);

    const int eventFd_;

    mutable std::mutex mutex_;
    std::condition_variable callbackEnded_;
    // No handle is given twice, and those of clients and ports lie above those of all objects.
    MIDIObjectRef lastObject_ = 0;
    MIDIObjectRef lastPort_ = 0x40000000;
    std::int32_t lastUniqueID_ = 100000;
    std::map<MIDIClientRef, Client> clients_;
    std::map<MIDIPortRef, Port> ports_;
    std::vector<std::unique_ptr<Object>> objects_;
    std::unordered_map<MIDIObjectRef, Object*> present_;
    std::vector<MIDIEndpointRef> sources_;
    std::vector<MIDIEndpointRef> destinations_;
    std::map<MIDIEndpointRef, Published> published_;
    std::map<MIDIEndpointRef, Account> accounts_;
    std::list<RunningCallback> callbacks_;
    bool stateChangeDue_ = false;
};

}  // namespace platform::software
