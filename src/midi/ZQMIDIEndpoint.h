#pragma once

// The endpoint layer: one manager over the MIDI service and one object for each of its sources and
// destinations. The rest of the program talks to MIDI through these endpoints and nothing else:
//
//     ZQMIDIRealDestination& output = ...;     // from ZQMIDIManager::realDestinations()
//     output.addSender(this);                  // opens the port
//     output.processMIDIPacketList(*list, this);
//     output.removeSender(this);               // closes it
//
// Nothing here reports an error; what is missing degrades to "UNKNOWN DEVICE", offline or none.

#include <atomic>
#include <compare>
#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "midi/ReceiverSet.h"
#include "midi/ZQMIDIEndpointDescriptor.h"
#include "midi/archive/keyedArchive.h"
#include "platform/MidiService.h"

namespace midi {

class ZQMIDIManager;

/// The base of every endpoint: its binding to an endpoint of the service, its names, and its users.
///
/// I/O is running exactly while there is a sender or a receiver. Users may come and go on any
/// thread, also during a delivery; all else belongs to the main thread.
class ZQMIDIEndpoint : public ZQMIDIReceiver, public archive::Archivable {
public:
    explicit ZQMIDIEndpoint(ZQMIDIManager& manager);
    ZQMIDIEndpoint(ZQMIDIManager& manager, std::optional<std::string> name, std::int32_t uniqueID);
    ZQMIDIEndpoint(ZQMIDIManager& manager, platform::MIDIEndpointRef endpoint);

    void encodeWithCoder(archive::KeyedEncoder& coder) const override;
    [[nodiscard]] std::string_view archivedClassName() const override { return "ZQMIDIEndpoint"; }
    [[nodiscard]] ZQMIDIEndpointDescriptor descriptor() const;

    void setPropertiesFromMIDIEndpoint();
    void setUniqueIDFromMIDIEndpoint();
    void setNameFromMIDIEndpoint();
    void setDisplayNameFromMIDIEndpoint();

    /// The handle in the service; 0 is none.
    [[nodiscard]] platform::MIDIEndpointRef midiEndpointRef() const { return midiEndpointRef_; }
    [[nodiscard]] const std::optional<std::string>& name() const { return name_; }
    /// 0 until known.
    [[nodiscard]] std::int32_t uniqueID() const { return uniqueID_; }

    /// Renames the endpoint in the service. False, with nothing changed, where that is refused.
    bool setName(std::string_view name);
    /// The same for the unique ID.
    bool setUniqueID(std::int32_t uniqueID);

    /// What a person is shown: what is plugged into the endpoint, else its name, else
    /// "UNKNOWN DEVICE"; with " (offline)" behind it while the endpoint is offline.
    [[nodiscard]] std::string displayName() const;
    /// By display name, upper and lower case being equal.
    [[nodiscard]] std::weak_ordering compareByDisplayName(const ZQMIDIEndpoint& other) const;

    [[nodiscard]] bool isOffline() const;
    [[nodiscard]] bool isOnline() const { return !isOffline(); }
    /// Whether this is a port of the platform's inter-application bus.
    [[nodiscard]] bool isIACBus() const;
    [[nodiscard]] bool isInUse() const;
    [[nodiscard]] bool isOnlineOrInUse() const { return isOnline() || isInUse(); }

    /// A receiver is known by its identity and must be removed before it is destroyed. Once
    /// `removeReceiver` has returned it is not called any more; only a call made from within a
    /// delivery of this endpoint does not wait for deliveries on other threads.
    void addReceiver(ZQMIDIReceiver* receiver);
    void removeReceiver(ZQMIDIReceiver* receiver);
    /// Who wants to send through the endpoint announces itself first; this is what opens the port.
    void addSender(const void* sender);
    void removeSender(const void* sender);

    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override;
    [[nodiscard]] virtual bool ioIsRunning() const { return false; }
    /// Both do nothing where there is nothing to do: they are called after every change of users.
    virtual void startIO() {}
    virtual void stopIO() {}

protected:
    [[nodiscard]] ZQMIDIManager& manager() const { return manager_; }
    [[nodiscard]] platform::MidiService& service() const;
    [[nodiscard]] ReceiverSet& receivers() { return receivers_; }
    void setMIDIEndpointRef(platform::MIDIEndpointRef endpoint) { midiEndpointRef_ = endpoint; }
    void startOrStopIO();

private:
    [[nodiscard]] std::optional<std::string> namesOfConnectedDevices() const;

    ZQMIDIManager& manager_;
    std::atomic<platform::MIDIEndpointRef> midiEndpointRef_ = 0;
    std::optional<std::string> name_;
    std::int32_t uniqueID_ = 0;
    std::optional<std::string> displayName_;
    ReceiverSet receivers_;
    mutable std::mutex sendersMutex_;
    std::set<const void*> senders_;
};

}  // namespace midi
