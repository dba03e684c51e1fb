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
// this service do. It answers misuse with an error code and also writes it down (`misuses`), so
// that a test can ask that there was none. A handle that was once valid and has vanished, or 0, is
// no misuse, just an error: hardware may go at any time.

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/MidiService.h"
#include "platform/software/Devices.h"
#include "platform/software/Misuses.h"

namespace platform::software {

/// A call of an operation of the service, by the operation's name.
struct Call {
    std::string_view operation;    ///< as "MIDIPortDispose"
    MIDIObjectRef object = 0;      ///< the client, port, endpoint or object it is about
    std::string_view detail = {};  ///< the property or the name it was given
};

class SoftwareMidiService final : public MidiService {
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
    /// What a source that was published here has given out, also after it is gone.
    [[nodiscard]] std::vector<RecordedPacketList> publishedBy(MIDIEndpointRef source) const;
    /// Whether the service gives what is published a unique ID of its own. It does not at first.
    void giveUniqueIDsToPublished(bool give);

    // Failing and watching.

    /// Runs at the start of every operation, on its thread, with no lock held. A result other than
    /// noErr makes the operation fail with it; a counting operation then counts 0.
    using OnCall = std::function<OSStatus(const Call&)>;
    void onCall(OnCall onCall);
    /// Makes an operation fail with a code from now on: for every detail (property or name), or for
    /// one. noErr ends it.
    void fail(std::string_view operation, OSStatus code, std::string_view detail = {});

    /// Gives every client a message at once, on the calling thread.
    void deliverNotification(std::int32_t messageID);

    /// From now on there is no service to be had, for the reason that the state tells.
    void obstruct(const ServiceState& state);
    /// It is there again, which the next dispatch reports.
    void recover();
    /// The same, but nothing tells of it: a rescan finds it.
    void recoverInSilence();

    // Counting.

    [[nodiscard]] std::size_t clients() const;
    [[nodiscard]] std::size_t openInputPorts() const;
    [[nodiscard]] std::size_t openOutputPorts() const;
    [[nodiscard]] std::size_t inputPortsCreated() const;
    [[nodiscard]] std::size_t outputPortsCreated() const;
    /// Input ports that listen to the source.
    [[nodiscard]] std::size_t listeners(MIDIEndpointRef source) const;
    [[nodiscard]] std::size_t publishedEndpoints() const;
    /// The names of the open ports, in order of their creation.
    [[nodiscard]] std::vector<std::string> openPortNames() const;

    [[nodiscard]] std::vector<std::string> misuses() const { return misuses_->reports(); }
    /// The same, to be read after the service's end, when ports left open have been added.
    [[nodiscard]] std::shared_ptr<Misuses> misuseList() const { return misuses_; }

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
    [[nodiscard]] std::vector<std::string> connectedPrograms(MIDIEndpointRef endpoint) override;
    void beginDelivery(MIDIEndpointRef destination) override;
    [[nodiscard]] platform::Delivery delivery(MIDIEndpointRef destination) override;
    void watchDelivery(MIDIEndpointRef destination,
                       std::function<void(const platform::Delivery&)> whenSettled) override;
    void abandonDelivery(MIDIEndpointRef destination) override;
    OSStatus MIDISourceCreate(MIDIClientRef client, std::string_view name,
                              MIDIEndpointRef* source) override;
    OSStatus MIDIDestinationCreate(MIDIClientRef client, std::string_view name, MIDIReadProc read,
                                   void* readProcRefCon, MIDIEndpointRef* destination) override;
    OSStatus MIDIEndpointDispose(MIDIEndpointRef endpoint) override;
    OSStatus MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) override;
    [[nodiscard]] int fileDescriptor() const override { return eventFd_; }
    void dispatch() override;
    void rescan() override;
    [[nodiscard]] ServiceState state() override;

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
        std::string name;
        MIDIReadProc read = nullptr;
        void* readProcRefCon = nullptr;
        std::map<MIDIEndpointRef, void*> connections;  // with each connection's own constant
        std::set<MIDIEndpointRef> connectionsTried;    // also those that failed
    };
    struct Published {
        MIDIReadProc read = nullptr;  // none for a source
        void* readProcRefCon = nullptr;
    };
    /// What became of what was sent to a destination, and what of it still waits.
    struct Account {
        platform::Delivery delivery;
        std::deque<MIDIPacketListPtr> waiting;
        std::function<void(const platform::Delivery&)> whenSettled;
    };
    struct RunningCallback {
        MIDIObjectRef object = 0;  // the port or the published destination
        std::thread::id thread;
    };

    // A function that takes a lock needs the mutex held.
    // SoftwareMidiService.cpp, Properties.cpp, PublishedEndpoints.cpp: the operations.
    [[nodiscard]] OSStatus begin(const Call& call);
    void misuse(std::string_view operation, std::string_view what, MIDIObjectRef object);
    /// The object with the handle; none is reported as misuse unless it once existed.
    [[nodiscard]] Object* find(const Lock&, std::string_view operation, MIDIObjectRef object);
    [[nodiscard]] Port* findPort(const Lock&, std::string_view operation, MIDIPortRef port,
                                 bool input);
    [[nodiscard]] bool listsNothing(const Lock&) const;
    [[nodiscard]] bool isClient(const Lock&, std::string_view operation, MIDIClientRef client);
    [[nodiscard]] Object* objectWithUniqueID(const Lock&, std::int32_t uniqueID) const;
    [[nodiscard]] OSStatus createPort(std::string_view operation, MIDIClientRef client, Port port,
                                      MIDIPortRef* handle);
    [[nodiscard]] OSStatus publish(std::string_view operation, MIDIClientRef client,
                                   std::unique_ptr<Endpoint> endpoint, MIDIReadProc read,
                                   void* refCon, MIDIEndpointRef* handle);
    [[nodiscard]] std::size_t countPorts(bool input) const;

    // Delivery.cpp: what goes through the service.
    void deliverFrom(MIDIEndpointRef source, const MIDIPacketList& list);
    void deliverTo(Lock& lock, MIDIEndpointRef destination, const MIDIPacketList& list);
    void runCallback(Lock& lock, MIDIObjectRef object, const std::function<void()>& callback);
    void waitForCallbacks(Lock& lock, MIDIObjectRef object);

    // Accounts.cpp: what became of what was sent.
    [[nodiscard]] OSStatus accept(Lock& lock, const Destination& device,
                                  const MIDIPacketList& list);
    void lose(const Lock&, MIDIEndpointRef destination, const MIDIPacketList& list, OSStatus code);
    void fail(const Lock&, Account& account, platform::Delivery::Trouble trouble);
    [[nodiscard]] Account* waitingAt(const Lock&, const Destination& device);
    void takeWaiting(Lock& lock, Destination& device);
    void settle(const Lock&, const Destination& device);
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
    void wakeUp();

    const std::thread::id mainThread_ = std::this_thread::get_id();
    const int eventFd_;
    const std::shared_ptr<Misuses> misuses_ = std::make_shared<Misuses>();

    mutable std::mutex mutex_;
    std::condition_variable callbackEnded_;
    std::shared_ptr<const OnCall> onCall_;
    std::map<std::pair<std::string, std::string>, OSStatus, std::less<>> failures_;
    // No handle is given twice, and those of clients and ports lie above those of all objects.
    MIDIObjectRef lastObject_ = 0;
    MIDIObjectRef lastPort_ = 0x40000000;
    std::int32_t lastUniqueID_ = 100000;
    bool publishedGetUniqueIDs_ = false;
    std::map<MIDIClientRef, Client> clients_;
    std::map<MIDIPortRef, Port> ports_;
    std::size_t inputPortsCreated_ = 0;
    std::size_t outputPortsCreated_ = 0;
    std::vector<std::unique_ptr<Object>> objects_;
    std::unordered_map<MIDIObjectRef, Object*> present_;
    std::vector<MIDIEndpointRef> sources_;
    std::vector<MIDIEndpointRef> destinations_;
    std::map<MIDIEndpointRef, Published> published_;
    std::map<MIDIEndpointRef, std::vector<RecordedPacketList>> publishedLists_;
    std::map<MIDIEndpointRef, Account> accounts_;
    std::list<RunningCallback> callbacks_;
    ServiceState obstacle_;  // with no obstacle, or the one that stands in the way
    bool hasRecoveredInSilence_ = false;
    bool stateChangeDue_ = false;
};

}  // namespace platform::software
