#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "midi/ZQMIDIRealDestination.h"
#include "midi/ZQMIDIRealSource.h"
#include "platform/MidiService.h"

namespace midi {

class ZQMIDIProcess;

/// Posted on the process's notification centre, with the manager as object, after the real lists
/// have followed a change of the MIDI setup.
inline constexpr std::string_view ZQMIDISetupChanged = "ZQMIDISetupChanged";

/// The one owner of the process's connection to the MIDI service, and of an endpoint object for
/// every source and destination it has ever seen in this run. Main thread only.
class ZQMIDIManager {
public:
    using RealSources = std::vector<std::unique_ptr<ZQMIDIRealSource>>;
    using RealDestinations = std::vector<std::unique_ptr<ZQMIDIRealDestination>>;

    /// For ZQMIDIProcess::sharedInstance alone.
    explicit ZQMIDIManager(ZQMIDIProcess& process);
    ZQMIDIManager(const ZQMIDIManager&) = delete;
    ZQMIDIManager& operator=(const ZQMIDIManager&) = delete;
    ~ZQMIDIManager();

    [[nodiscard]] ZQMIDIProcess& process() const { return process_; }
    [[nodiscard]] platform::MidiService& service() const;
    /// 0 if there is no service to be had; the lists are empty then.
    [[nodiscard]] platform::MIDIClientRef midiClientRef() const { return midiClientRef_; }

    /// While off, a setup change is ignored, and lost. No nesting: one enable undoes any number of
    /// disables. An endpoint switches them off around what it changes itself.
    void disableNotifications() { notificationsEnabled_ = false; }
    void enableNotifications() { notificationsEnabled_ = true; }

    /// A notification that arrives while one is being handled does not nest: the handling runs
    /// once more afterwards.
    void processMIDINotification(const platform::MIDINotification& message);

    void updateRealSources();
    void updateRealDestinations();
    void updateSourceDevices() {}
    void updateDestinationDevices() {}

    /// The live lists, sorted by display name at every refresh. An endpoint stays in its list, and
    /// its object alive, after it has gone offline.
    [[nodiscard]] const RealSources& realSources() const { return realSourceArray_; }
    [[nodiscard]] const RealDestinations& realDestinations() const { return realDestinationArray_; }
    /// Always empty.
    [[nodiscard]] const std::vector<platform::MIDIDeviceRef>& sourceDevices() const {
        return sourceDevicesArray_;
    }
    [[nodiscard]] const std::vector<platform::MIDIDeviceRef>& destinationDevices() const {
        return destinationDevicesArray_;
    }

    [[nodiscard]] std::vector<ZQMIDIRealSource*> realSourcesOnlineOrInUse() const;
    [[nodiscard]] std::vector<ZQMIDIRealDestination*> realDestinationsOnlineOrInUse() const;

    /// The endpoint now bound to the handle, or none.
    [[nodiscard]] ZQMIDIRealSource* realSourceWithMIDIEndpointRef(
        platform::MIDIEndpointRef endpoint) const;
    [[nodiscard]] ZQMIDIRealDestination* realDestinationWithMIDIEndpointRef(
        platform::MIDIEndpointRef endpoint) const;

    /// The endpoint the descriptor stands for. One that is not there is made, offline, and put at
    /// the end of the list.
    [[nodiscard]] ZQMIDIRealSource& realSourceWithDescriptor(
        const ZQMIDIEndpointDescriptor& descriptor);
    [[nodiscard]] ZQMIDIRealDestination& realDestinationWithDescriptor(
        const ZQMIDIEndpointDescriptor& descriptor);

    /// The name of a MIDI note, 0 "C-1" to 127 "G9"; none outside.
    [[nodiscard]] std::optional<std::string_view> nameOfNote(std::uint8_t note) const;

private:
    void buildNoteNamesArray();

    ZQMIDIProcess& process_;
    bool notificationsEnabled_ = false;
    bool isHandlingNotification_ = false;
    bool shouldRetryWhenDone_ = false;
    platform::MIDIClientRef midiClientRef_ = 0;
    RealSources realSourceArray_;
    RealDestinations realDestinationArray_;
    std::vector<platform::MIDIDeviceRef> sourceDevicesArray_;
    std::vector<platform::MIDIDeviceRef> destinationDevicesArray_;
    std::array<std::string, 128> noteNamesArray_;
};

}  // namespace midi
