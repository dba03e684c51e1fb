#include "midi/ZQMIDIManager.h"

#include <algorithm>
#include <compare>
#include <utility>

#include "midi/ZQMIDIEndpointSet.h"
#include "midi/ZQMIDIProcess.h"
#include "midi/ZQMIDIUtils.h"
#include "midi/caseInsensitive.h"
#include "midi/endpointDirection.h"
#include "midi/ownEndpoints.h"

namespace midi {

using platform::MIDIEndpointRef;

namespace {

void midiNotifyProc(const platform::MIDINotification* message, void* refCon) {
    static_cast<ZQMIDIManager*>(refCon)->processMIDINotification(*message);
}

template <typename Endpoint>
Endpoint* withMIDIEndpointRef(const std::vector<std::unique_ptr<Endpoint>>& list,
                              MIDIEndpointRef endpoint) {
    const auto found = std::find_if(list.begin(), list.end(), [=](const auto& entry) {
        return entry->midiEndpointRef() == endpoint;
    });
    return found == list.end() ? nullptr : found->get();
}

template <typename Endpoint>
Endpoint& withDescriptor(ZQMIDIManager& manager, std::vector<std::unique_ptr<Endpoint>>& list,
                         const ZQMIDIEndpointDescriptor& descriptor) {
    ZQMIDIEndpoint* const found =
        ZQMIDIEndpointSet::endpointSetWithArray(list).endpointWithDescriptor(descriptor);
    if (found != nullptr) {
        return static_cast<Endpoint&>(*found);
    }
    return *list.emplace_back(std::make_unique<Endpoint>(manager, descriptor));
}

/// In the order of ZQMIDIEndpoint::compareByDisplayName. The names are asked for once, because one
/// can change between two comparisons, with the device that goes.
template <typename Endpoint>
void sortByDisplayName(std::vector<std::unique_ptr<Endpoint>>& list) {
    std::vector<std::pair<std::string, std::unique_ptr<Endpoint>>> named;
    named.reserve(list.size());
    for (std::unique_ptr<Endpoint>& endpoint : list) {
        std::string name = endpoint->displayName();
        named.emplace_back(std::move(name), std::move(endpoint));
    }
    std::stable_sort(named.begin(), named.end(), [](const auto& a, const auto& b) {
        return std::is_lt(compareIgnoringCase(a.first, b.first));
    });
    std::transform(named.begin(), named.end(), list.begin(),
                   [](auto& entry) { return std::move(entry.second); });
}

template <typename Endpoint>
void refresh(ZQMIDIManager& manager, const EndpointDirection& direction,
             std::vector<std::unique_ptr<Endpoint>>& list) {
    for (const auto& endpoint : list) {
        endpoint->syncWithMIDIEndpoint();
    }
    platform::MidiService& service = manager.service();
    const std::uint32_t count = (service.*direction.count)();
    for (std::uint32_t index = 0; index < count; ++index) {
        const MIDIEndpointRef endpoint = (service.*direction.at)(index);
        const bool gone = endpoint == 0;
        if (!gone && !ZQMIDIIsEndpointLocalVirtual(manager.process(), endpoint) &&
            withMIDIEndpointRef(list, endpoint) == nullptr) {
            list.push_back(std::make_unique<Endpoint>(manager, endpoint));
        }
    }
    sortByDisplayName(list);
}

}  // namespace

ZQMIDIManager::ZQMIDIManager(ZQMIDIProcess& process) : process_(process) {
    service().MIDIClientCreate("ZQMIDIManager", midiNotifyProc, this, &midiClientRef_);
    updateRealSources();
    updateRealDestinations();
    updateSourceDevices();
    updateDestinationDevices();
    buildNoteNamesArray();
    notificationsEnabled_ = true;
}

ZQMIDIManager::~ZQMIDIManager() = default;

platform::MidiService& ZQMIDIManager::service() const {
    return process_.service();
}

void ZQMIDIManager::processMIDINotification(const platform::MIDINotification& message) {
    if (isHandlingNotification_) {
        shouldRetryWhenDone_ = true;
        return;
    }
    do {
        isHandlingNotification_ = true;
        shouldRetryWhenDone_ = false;
        if (message.messageID == platform::kMIDIMsgSetupChanged && notificationsEnabled_) {
            updateRealSources();
            updateRealDestinations();
            process_.notificationCentre().postNotification(ZQMIDISetupChanged, this);
        }
        isHandlingNotification_ = false;
    } while (shouldRetryWhenDone_);
}

void ZQMIDIManager::updateRealSources() {
    refresh(*this, sources, realSourceArray_);
}

void ZQMIDIManager::updateRealDestinations() {
    refresh(*this, destinations, realDestinationArray_);
}

std::vector<ZQMIDIRealSource*> ZQMIDIManager::realSourcesOnlineOrInUse() const {
    return filteredArrayUsingSelector(realSourceArray_, &ZQMIDIEndpoint::isOnlineOrInUse);
}

std::vector<ZQMIDIRealDestination*> ZQMIDIManager::realDestinationsOnlineOrInUse() const {
    return filteredArrayUsingSelector(realDestinationArray_, &ZQMIDIEndpoint::isOnlineOrInUse);
}

ZQMIDIRealSource* ZQMIDIManager::realSourceWithMIDIEndpointRef(MIDIEndpointRef endpoint) const {
    return withMIDIEndpointRef(realSourceArray_, endpoint);
}

ZQMIDIRealDestination* ZQMIDIManager::realDestinationWithMIDIEndpointRef(
    MIDIEndpointRef endpoint) const {
    return withMIDIEndpointRef(realDestinationArray_, endpoint);
}

ZQMIDIRealSource& ZQMIDIManager::realSourceWithDescriptor(
    const ZQMIDIEndpointDescriptor& descriptor) {
    return withDescriptor(*this, realSourceArray_, descriptor);
}

ZQMIDIRealDestination& ZQMIDIManager::realDestinationWithDescriptor(
    const ZQMIDIEndpointDescriptor& descriptor) {
    return withDescriptor(*this, realDestinationArray_, descriptor);
}

void ZQMIDIManager::buildNoteNamesArray() {
    constexpr std::array<const char*, 12> pitchNames = {"C",  "C#", "D",  "D#", "E",  "F",
                                                        "F#", "G",  "G#", "A",  "A#", "B"};
    for (std::size_t note = 0; note < noteNamesArray_.size(); ++note) {
        const int octave = static_cast<int>(note / pitchNames.size()) - 1;
        noteNamesArray_[note] = pitchNames[note % pitchNames.size()] + std::to_string(octave);
    }
}

std::optional<std::string_view> ZQMIDIManager::nameOfNote(std::uint8_t note) const {
    if (note >= noteNamesArray_.size()) {
        return std::nullopt;
    }
    return noteNamesArray_[note];
}

}  // namespace midi
