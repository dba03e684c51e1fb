#pragma once

// The operations of a MIDI service that the endpoint layer (midi/) calls, as one abstract class.
// Implementations: platform/alsa (the product) and platform/software (in this process: tests, the
// demo). Handles are plain integers, 0 is none; results are codes, 0 is success.
//
// All operations belong to the main thread, with these exceptions: MIDIReceived may be called on
// any thread, a read callback runs on the service's input thread, and a read callback may itself
// send and create, connect, disconnect and dispose of ports. Once MIDIPortDispose or
// MIDIEndpointDispose has returned, no read callback of that port or endpoint runs any more,
// unless the call came from within that very callback.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Delivery.h"
#include "platform/NotificationCentre.h"
#include "platform/PacketList.h"
#include "platform/ServiceState.h"

namespace platform {

using MIDIObjectRef = std::uint32_t;  ///< any of the handles below
using MIDIClientRef = MIDIObjectRef;
using MIDIPortRef = MIDIObjectRef;
using MIDIDeviceRef = MIDIObjectRef;
using MIDIEntityRef = MIDIObjectRef;
using MIDIEndpointRef = MIDIObjectRef;

/// A result code. 0 is success.
using OSStatus = std::int32_t;

inline constexpr OSStatus noErr = 0;
inline constexpr OSStatus kMIDIInvalidClient = -10830;
inline constexpr OSStatus kMIDIInvalidPort = -10831;
inline constexpr OSStatus kMIDIWrongEndpointType = -10832;
inline constexpr OSStatus kMIDINoConnection = -10833;
inline constexpr OSStatus kMIDIUnknownEndpoint = -10834;
inline constexpr OSStatus kMIDIUnknownProperty = -10835;
inline constexpr OSStatus kMIDIWrongPropertyType = -10836;
inline constexpr OSStatus kMIDIServerStartErr = -10839;
inline constexpr OSStatus kMIDIIDNotUnique = -10843;
inline constexpr OSStatus kMIDIObjectNotFound = -10842;

/// What MIDIObjectFindByUniqueID found.
using MIDIObjectType = std::int32_t;
inline constexpr MIDIObjectType kMIDIObjectType_Other = -1;
inline constexpr MIDIObjectType kMIDIObjectType_Device = 0;
inline constexpr MIDIObjectType kMIDIObjectType_Entity = 1;
inline constexpr MIDIObjectType kMIDIObjectType_Source = 2;
inline constexpr MIDIObjectType kMIDIObjectType_Destination = 3;
inline constexpr MIDIObjectType kMIDIObjectType_ExternalDevice = 16;
inline constexpr MIDIObjectType kMIDIObjectType_ExternalEntity = 17;
inline constexpr MIDIObjectType kMIDIObjectType_ExternalSource = 18;
inline constexpr MIDIObjectType kMIDIObjectType_ExternalDestination = 19;

// Property names.
inline constexpr std::string_view kMIDIPropertyName = "name";
inline constexpr std::string_view kMIDIPropertyUniqueID = "uniqueID";
inline constexpr std::string_view kMIDIPropertyOffline = "offline";
inline constexpr std::string_view kMIDIPropertyPrivate = "private";
inline constexpr std::string_view kMIDIPropertyDriverOwner = "driver";
/// Data: the unique IDs, each 32 bits big-endian, of what is plugged into the endpoint.
inline constexpr std::string_view kMIDIPropertyConnectionUniqueID = "connUniqueID";

/// The driver whose endpoints are the platform's inter-application bus.
inline constexpr std::string_view interApplicationBusDriver = "com.apple.AppleMIDIIACDriver";

/// A message from the service about itself.
struct MIDINotification {
    std::int32_t messageID;
    std::uint32_t messageSize;  ///< bytes of the record, this header included
};
/// The setup of devices and endpoints changed.
inline constexpr std::int32_t kMIDIMsgSetupChanged = 1;

/// Posted by a service on its `stateChanges`, with itself as the object.
inline constexpr std::string_view MIDIServiceStateChanged = "MIDIServiceStateChanged";

using MIDINotifyProc = void (*)(const MIDINotification* message, void* refCon);
using MIDIReadProc = void (*)(const MIDIPacketList* list, void* readProcRefCon,
                              void* srcConnRefCon);

class MidiService {
public:
    MidiService() = default;
    MidiService(const MidiService&) = delete;
    MidiService& operator=(const MidiService&) = delete;
    virtual ~MidiService() = default;

    /// Connects this process to the service. `notify` is called by `dispatch` and `rescan`, on the
    /// main thread.
    /// A failure leaves `*client` 0.
    virtual OSStatus MIDIClientCreate(std::string_view name, MIDINotifyProc notify, void* refCon,
                                      MIDIClientRef* client) = 0;
    /// Ends the connection, as the end of the process does: `notify` is not called any more.
    virtual OSStatus MIDIClientDispose(MIDIClientRef client) = 0;

    /// Without a client nothing is listed.
    virtual std::uint32_t MIDIGetNumberOfSources() = 0;
    virtual MIDIEndpointRef MIDIGetSource(std::uint32_t index) = 0;  ///< 0 outside the list
    virtual std::uint32_t MIDIGetNumberOfDestinations() = 0;
    virtual MIDIEndpointRef MIDIGetDestination(std::uint32_t index) = 0;  ///< 0 outside the list

    /// A read that fails leaves the output as it was.
    virtual OSStatus MIDIObjectGetStringProperty(MIDIObjectRef object, std::string_view property,
                                                 std::string* value) = 0;
    virtual OSStatus MIDIObjectGetIntegerProperty(MIDIObjectRef object, std::string_view property,
                                                  std::int32_t* value) = 0;
    virtual OSStatus MIDIObjectGetDataProperty(MIDIObjectRef object, std::string_view property,
                                               std::vector<std::uint8_t>* value) = 0;
    virtual OSStatus MIDIObjectSetStringProperty(MIDIObjectRef object, std::string_view property,
                                                 std::string_view value) = 0;
    virtual OSStatus MIDIObjectSetIntegerProperty(MIDIObjectRef object, std::string_view property,
                                                  std::int32_t value) = 0;

    virtual OSStatus MIDIObjectFindByUniqueID(std::int32_t uniqueID, MIDIObjectRef* object,
                                              MIDIObjectType* type) = 0;
    virtual OSStatus MIDIEndpointGetEntity(MIDIEndpointRef endpoint, MIDIEntityRef* entity) = 0;
    virtual OSStatus MIDIEntityGetDevice(MIDIEntityRef entity, MIDIDeviceRef* device) = 0;

    virtual OSStatus MIDIInputPortCreate(MIDIClientRef client, std::string_view name,
                                         MIDIReadProc read, void* readProcRefCon,
                                         MIDIPortRef* port) = 0;
    /// Cheap, and unseen by other programs: a sender may open and close a port around every byte.
    virtual OSStatus MIDIOutputPortCreate(MIDIClientRef client, std::string_view name,
                                          MIDIPortRef* port) = 0;
    virtual OSStatus MIDIPortConnectSource(MIDIPortRef port, MIDIEndpointRef source,
                                           void* srcConnRefCon) = 0;
    virtual OSStatus MIDIPortDisconnectSource(MIDIPortRef port, MIDIEndpointRef source) = 0;
    virtual OSStatus MIDIPortDispose(MIDIPortRef port) = 0;

    /// Hands a packet list to a destination. When it returns, the list may be freed.
    virtual OSStatus MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                              const MIDIPacketList* list) = 0;

    /// Names of the other programs that are connected to the endpoint now, in no order, one a
    /// program. What they send can slip in between our messages. Empty where nothing is known.
    [[nodiscard]] virtual std::vector<std::string> connectedPrograms(MIDIEndpointRef) { return {}; }

    // What became of what was sent. A destination's account begins anew with `beginDelivery`, and
    // stays as it is once there is trouble: a destination that comes back, or takes data again,
    // does not go on with what was cut.

    /// Forgets what was handed over to the destination up to now, and trouble with it.
    virtual void beginDelivery(MIDIEndpointRef) {}
    /// Never waits.
    [[nodiscard]] virtual Delivery delivery(MIDIEndpointRef) { return {}; }
    /// Calls `whenSettled` once, by `dispatch` on the main thread, when the destination's account
    /// is settled. A later call for the same destination replaces it; an empty one takes it back.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): a service keeps it
    virtual void watchDelivery(MIDIEndpointRef, std::function<void(const Delivery&)>) {}
    /// Throws away what still waits in this computer for the destination, so that it can never
    /// arrive late; the account has trouble from then on, if bytes were waiting.
    virtual void abandonDelivery(MIDIEndpointRef) {}

    // Endpoints that this process publishes.
    virtual OSStatus MIDISourceCreate(MIDIClientRef client, std::string_view name,
                                      MIDIEndpointRef* source) = 0;
    virtual OSStatus MIDIDestinationCreate(MIDIClientRef client, std::string_view name,
                                           MIDIReadProc read, void* readProcRefCon,
                                           MIDIEndpointRef* destination) = 0;
    virtual OSStatus MIDIEndpointDispose(MIDIEndpointRef endpoint) = 0;
    /// Hands a packet list to every program that listens to a source of this process.
    virtual OSStatus MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) = 0;

    /// Becomes readable when `dispatch` has something to do; -1 if it never will. To be watched by
    /// the program's event loop.
    [[nodiscard]] virtual int fileDescriptor() const = 0;

    /// Delivers what is due on the main thread: setup changes, coalesced, to the clients and then
    /// to those who watch the state.
    virtual void dispatch() = 0;

    /// Looks once more, at once, for what nothing announces: a service that was not there until
    /// now. To be called before a person is shown the lists. All are told of what has changed.
    virtual void rescan() {}

    /// What there is. The first call looks for the service, and from then on it is followed.
    [[nodiscard]] virtual ServiceState state() = 0;
    /// MIDIServiceStateChanged is posted here, by `dispatch` and `rescan`, when the state may be
    /// another; the clients have been told of the change before.
    [[nodiscard]] NotificationCentre& stateChanges() { return stateChanges_; }

private:
    NotificationCentre stateChanges_;
};

}  // namespace platform
