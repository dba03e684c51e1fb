#pragma once

// The MIDI service of a test: the one in software, which in addition fails as the test has laid
// down, lets senders wait, counts and keeps what goes through it, and writes down what a caller did
// wrong.
//
//     ScriptedMidiService service;
//     Destination& port = service.addDestination("Port 1");
//     service.fail("MIDIOutputPortCreate", -1);
//     ...
//     service.at(port).holdBack();
//     ...
//     EXPECT_THAT(service.at(port).received(), ElementsAre(...));
//     EXPECT_THAT(service.misuses(), IsEmpty());
//
// A handle that was once valid and has vanished, or 0, is no misuse, just an error: hardware may go
// at any time. What a destination does is told and asked on the main thread alone.

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/software/SoftwareMidiService.h"
#include "support/Misuses.h"
#include "support/Receiver.h"

namespace support {

/// A call of an operation of the service, by the operation's name.
struct Call {
    std::string_view operation;          ///< as "MIDIPortDispose"
    platform::MIDIObjectRef object = 0;  ///< the client, port, endpoint or object it is about
    std::string_view detail = {};        ///< the property or the name it was given
};

class ScriptedMidiService final : public platform::software::SoftwareMidiService {
public:
    using MIDIClientRef = platform::MIDIClientRef;
    using MIDIDeviceRef = platform::MIDIDeviceRef;
    using MIDIEndpointRef = platform::MIDIEndpointRef;
    using MIDIEntityRef = platform::MIDIEntityRef;
    using MIDINotifyProc = platform::MIDINotifyProc;
    using MIDIObjectRef = platform::MIDIObjectRef;
    using MIDIObjectType = platform::MIDIObjectType;
    using MIDIPacketList = platform::MIDIPacketList;
    using MIDIPortRef = platform::MIDIPortRef;
    using MIDIReadProc = platform::MIDIReadProc;
    using OSStatus = platform::OSStatus;

    ScriptedMidiService() = default;
    ~ScriptedMidiService() override;

    /// How a destination behaves, and what it took.
    [[nodiscard]] Receiver& at(const platform::software::Destination& destination);

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
    void obstruct(const platform::ServiceState& state);
    /// It is there again, which the next dispatch reports.
    void recover() { obstruct({}); }
    /// The same, but nothing tells of it: a rescan finds it.
    void recoverInSilence() { hasRecoveredInSilence_ = true; }

    /// Whether the service gives what is published a unique ID of its own. It does not at first.
    void giveUniqueIDsToPublished(bool give) { publishedGetUniqueIDs_ = give; }

    // Counting and keeping.

    [[nodiscard]] std::size_t clients() const;
    [[nodiscard]] std::size_t openInputPorts() const { return countPorts(true); }
    [[nodiscard]] std::size_t openOutputPorts() const { return countPorts(false); }
    [[nodiscard]] std::size_t inputPortsCreated() const;
    [[nodiscard]] std::size_t outputPortsCreated() const;
    /// Input ports that listen to the source.
    [[nodiscard]] std::size_t listeners(MIDIEndpointRef source) const;
    [[nodiscard]] std::size_t publishedEndpoints() const;
    /// The names of the open ports, in order of their creation.
    [[nodiscard]] std::vector<std::string> openPortNames() const;
    /// What a source that was published here has given out, also after it is gone.
    [[nodiscard]] std::vector<RecordedPacketList> publishedBy(MIDIEndpointRef source) const;

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
    void dispatch() override;
    void rescan() override;
    [[nodiscard]] platform::ServiceState state() override;

private:
    friend class Receiver;

    using Lock = std::lock_guard<std::mutex>;

    struct Client {
        MIDINotifyProc notify = nullptr;
        void* refCon = nullptr;
    };
    struct Port {
        bool isInput = false;
        std::string name;
        std::set<MIDIEndpointRef> connections;
        std::set<MIDIEndpointRef> connectionsTried;  // also those that failed
    };
    /// What the service in software does not know of an account: what it was not given yet, or
    /// never.
    struct Account {
        std::uint64_t keptBack = 0;  // bytes
        std::deque<platform::MIDIPacketListPtr> waiting;
        std::chrono::milliseconds standstill{0};
        bool isUnsettled = false;
        platform::Delivery::Trouble trouble = platform::Delivery::Trouble::None;
        std::string program;
        std::function<void(const platform::Delivery&)> whenSettled;
    };

    [[nodiscard]] OSStatus begin(const Call& call) const;
    /// Passes a code on; a caller who could have avoided it is written down.
    OSStatus judged(std::string_view operation, MIDIObjectRef object, OSStatus code);
    void misuse(std::string_view operation, std::string_view what, MIDIObjectRef object);
    [[nodiscard]] bool listsNothing(std::string_view operation) const;
    OSStatus opened(OSStatus code, MIDIPortRef port, bool isInput, std::string_view name);
    OSStatus published(OSStatus code, MIDIEndpointRef endpoint);
    [[nodiscard]] bool isOpen(MIDIPortRef port, bool isInput) const;
    [[nodiscard]] std::size_t countPorts(bool input) const;

    // ScriptedDeliveries.cpp
    [[nodiscard]] OSStatus take(Receiver& receiver, MIDIEndpointRef destination,
                                const MIDIPacketList& list);
    void passOn(Receiver& receiver, MIDIEndpointRef destination, const MIDIPacketList& list);
    void refuse(MIDIEndpointRef destination, platform::Delivery::Trouble trouble,
                const std::string& program = {});
    void takeWaiting(Receiver& receiver);
    void settle(MIDIEndpointRef destination);

    const std::thread::id mainThread_ = std::this_thread::get_id();
    const std::shared_ptr<Misuses> misuses_ = std::make_shared<Misuses>();
    bool publishedGetUniqueIDs_ = false;
    platform::ServiceState obstacle_;  // with no obstacle, or the one that stands in the way
    bool hasRecoveredInSilence_ = false;
    std::map<const platform::software::Destination*, std::unique_ptr<Receiver>> receivers_;
    std::map<MIDIEndpointRef, Account> accounts_;

    mutable std::mutex mutex_;  // for what follows
    std::shared_ptr<const OnCall> onCall_;
    std::map<std::pair<std::string, std::string>, OSStatus> failures_;
    std::map<MIDIClientRef, Client> clients_;
    std::map<MIDIPortRef, Port> ports_;
    std::size_t inputPortsCreated_ = 0;
    std::size_t outputPortsCreated_ = 0;
    std::set<MIDIEndpointRef> published_;
    std::map<MIDIEndpointRef, std::vector<RecordedPacketList>> publishedLists_;
    std::int32_t lastUniqueID_ = 200000;  // far from those of the devices
};

}  // namespace support
