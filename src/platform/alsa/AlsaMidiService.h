#pragma once

// The MIDI service of a Linux computer, over the ALSA sequencer: what other programs and devices
// offer is listed, what comes and goes is followed, what is sent arrives whole and in order or the
// call has not returned.
//
//     AlsaMidiService service("Tormelk Wyro");      // the name other programs see
//     ...
//     service.end();                                // before the process exits
//
// A kernel client is a device with one entity; a program's port has neither. The bus between
// programs (Midi Through) carries the driver's name that isIACBus knows, and a mark in its names.
// The second of two devices of one model has a number in its name. Unique IDs: see uniqueIDFor.h.
// "ZQMIDIOwnerPID" of another program's port is its process, as the kernel knows it.
//
// Without a sequencer (not loaded, denied, gone) the lists are empty, everything else fails quietly
// and the state tells why. It is found when it comes: the device node's folder is watched, and
// `rescan` looks for what nothing announces.
//
// What is sent waits in this process where the destination has no space for it, so that no call
// keeps its caller long. What became of it is known as far as the kernel knows: `delivery`. A
// destination with trouble takes nothing more, and but for another program in the way it is
// offline, until `dispatch` or `rescan` has taken in what changed; a program that has stopped
// reading also until it reads again. So a long send that keeps the main thread never goes on after
// a device was pulled out and plugged in again.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MidiService.h"
#include "platform/alsa/Announcements.h"
#include "platform/alsa/Coalescer.h"
#include "platform/alsa/EndpointList.h"
#include "platform/alsa/Input.h"
#include "platform/alsa/Output.h"
#include "platform/alsa/SequencerNode.h"

namespace platform::alsa {

class AlsaMidiService final : public MidiService {
public:
    /// To be made on the main thread. Does nothing to the sequencer before the first look or
    /// client.
    explicit AlsaMidiService(std::string_view programName, SequencerNode node = {});
    ~AlsaMidiService() override;

    /// Lets go of the devices, for the process is about to exit: nothing can be sent afterwards.
    /// Takes at most a few seconds, while leaving it to the kernel can take 10 s for a dead device.
    void end();

    OSStatus MIDIClientCreate(std::string_view name, MIDINotifyProc notify, void* refCon,
                              MIDIClientRef* client) override;
    OSStatus MIDIClientDispose(MIDIClientRef client) override;
    std::uint32_t MIDIGetNumberOfSources() override;
    MIDIEndpointRef MIDIGetSource(std::uint32_t index) override;
    std::uint32_t MIDIGetNumberOfDestinations() override;
    MIDIEndpointRef MIDIGetDestination(std::uint32_t index) override;
    OSStatus MIDIObjectGetStringProperty(MIDIObjectRef object, std::string_view property,
                                         std::string* value) override;
    /// A port that has gone is offline from the moment at which the kernel says so, also while
    /// nobody dispatches: a long send that keeps the main thread busy need not go on in vain.
    OSStatus MIDIObjectGetIntegerProperty(MIDIObjectRef object, std::string_view property,
                                          std::int32_t* value) override;
    OSStatus MIDIObjectGetDataProperty(MIDIObjectRef object, std::string_view property,
                                       std::vector<std::uint8_t>* value) override;
    /// Only what this process has published can be written to: kMIDIUnknownEndpoint otherwise.
    OSStatus MIDIObjectSetStringProperty(MIDIObjectRef object, std::string_view property,
                                         std::string_view value) override;
    /// The same. A unique ID that another endpoint has is refused, and so is 0, which is none.
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
    /// Time stamps are not looked at: everything is sent at once.
    OSStatus MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                      const MIDIPacketList* list) override;
    [[nodiscard]] std::vector<std::string> connectedPrograms(MIDIEndpointRef endpoint) override;
    void beginDelivery(MIDIEndpointRef destination) override;
    [[nodiscard]] Delivery delivery(MIDIEndpointRef destination) override;
    void watchDelivery(MIDIEndpointRef destination,
                       std::function<void(const Delivery&)> whenSettled) override;
    void abandonDelivery(MIDIEndpointRef destination) override;
    OSStatus MIDISourceCreate(MIDIClientRef client, std::string_view name,
                              MIDIEndpointRef* source) override;
    OSStatus MIDIDestinationCreate(MIDIClientRef client, std::string_view name, MIDIReadProc read,
                                   void* readProcRefCon, MIDIEndpointRef* destination) override;
    OSStatus MIDIEndpointDispose(MIDIEndpointRef endpoint) override;
    OSStatus MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) override;
    void rescan() override;
    [[nodiscard]] ServiceState state() override;
    [[nodiscard]] int fileDescriptor() const override { return watch_; }
    void dispatch() override;

private:
    using Lock = std::unique_lock<std::mutex>;

    struct Client {
        MIDINotifyProc notify = nullptr;
        void* refCon = nullptr;
        bool changeDue = false;
    };
    struct Port {
        bool isInput = false;
        int number = -1;  // of an input port
        std::map<MIDIEndpointRef, Address> connections;
    };
    struct Published {
        int number = -1;  // of its port
        Direction direction = Direction::Source;
        std::string name;
        std::map<std::string, std::int32_t, std::less<>> integers;
        std::map<std::string, std::string, std::less<>> strings;
    };

    // Properties.cpp: handles and properties.
    [[nodiscard]] bool exists(const Lock&, MIDIObjectRef object) const;
    [[nodiscard]] std::optional<std::string> stringProperty(const Lock&, MIDIObjectRef object,
                                                            std::string_view property) const;
    [[nodiscard]] std::optional<std::int32_t> integerProperty(const Lock&, MIDIObjectRef object,
                                                              std::string_view property) const;
    [[nodiscard]] MIDIEndpointRef endpointWithUniqueID(const Lock&, std::int32_t uniqueID) const;
    [[nodiscard]] std::optional<Direction> directionOf(const Lock&, MIDIEndpointRef endpoint) const;
    [[nodiscard]] std::optional<PortDescription> portOf(const Lock&,
                                                        MIDIEndpointRef endpoint) const;
    [[nodiscard]] std::vector<MIDIEndpointRef> endpointsOf(const Lock&, Direction direction) const;
    [[nodiscard]] OSStatus publish(MIDIClientRef client, std::string_view name, Direction direction,
                                   MIDIReadProc read, void* readProcRefCon,
                                   MIDIEndpointRef* endpoint);

    // Setup.cpp: following what comes and goes.
    void openSequencer(const Lock&);
    void lookAfresh(const Lock&);
    void readAnnouncements(const Lock&);
    /// Takes in what has been announced, while the lists stay as they are; the main thread is woken
    /// to act on it.
    void readAnnouncementsAhead(const Lock&);
    /// Returns whether there was any.
    bool readNews(const Lock&);
    void follow(const Lock&);
    void loseSequencer(const Lock&);
    void makeDue(const Lock&);
    void notifyDue(Lock& lock);
    void takeNewsOfOutput(const Lock& lock);
    /// Whether the kernel has announced that the port is no longer there.
    [[nodiscard]] bool hasGone(const Lock&, const PortDescription& port) const;
    void wakeUp() const;
    void watch(int descriptor) const;

    // Deliveries.cpp: what became of what was sent.
    void tellSettled(Lock& lock);

    // The client that publishes has this name alone, so that it is found by it.
    const std::string programName_;
    const SequencerNode node_;
    const int watch_;   // an epoll over the others
    const int timer_;   // runs while changes are coalesced
    const int wakeUp_;  // another thread has something for the main thread

    mutable std::mutex mutex_;
    // No handle is given twice.
    MIDIObjectRef lastHandle_ = 0;
    std::map<MIDIClientRef, Client> clients_;
    std::map<MIDIPortRef, Port> ports_;
    std::map<MIDIEndpointRef, Published> published_;
    EndpointList list_{lastHandle_};
    std::vector<MIDIEndpointRef> sources_;
    std::vector<MIDIEndpointRef> destinations_;
    std::unique_ptr<Announcements> announcements_;
    std::unique_ptr<NodeWatch> nodeWatch_;  // while the sequencer is looked for in vain
    ServiceState obstacle_;                 // with no obstacle, or the one that stands in the way
    bool hasLooked_ = false;
    bool stateChangeDue_ = false;
    Announcements::News news_;
    Coalescer coalescer_;
    std::map<MIDIEndpointRef, std::function<void(const Delivery&)>> deliveryWatches_;

    Input input_;
    Output output_;
};

}  // namespace platform::alsa
