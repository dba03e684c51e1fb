#include "support/ScriptedMidiService.h"

#include <algorithm>

namespace support {

using platform::kMIDIInvalidClient;
using platform::kMIDIInvalidPort;
using platform::kMIDINoConnection;
using platform::kMIDIObjectNotFound;
using platform::kMIDIPropertyUniqueID;
using platform::kMIDIUnknownEndpoint;
using platform::kMIDIWrongEndpointType;
using platform::MIDIClientRef;
using platform::MIDIDeviceRef;
using platform::MIDIEndpointRef;
using platform::MIDIEntityRef;
using platform::MIDINotification;
using platform::MIDINotifyProc;
using platform::MIDIObjectRef;
using platform::MIDIObjectType;
using platform::MIDIPortRef;
using platform::MIDIReadProc;
using platform::noErr;
using platform::OSStatus;
using platform::ServiceState;

ScriptedMidiService::~ScriptedMidiService() {
    for (const auto& [handle, port] : ports_) {
        misuse("~", "left open: port " + port.name, handle);
    }
    for (const MIDIEndpointRef endpoint : published_) {
        misuse("~", "left behind: published endpoint", endpoint);
    }
}

void ScriptedMidiService::onCall(OnCall onCall) {
    const Lock lock(mutex_);
    onCall_ = onCall ? std::make_shared<const OnCall>(std::move(onCall)) : nullptr;
}

void ScriptedMidiService::fail(std::string_view operation, OSStatus code, std::string_view detail) {
    const Lock lock(mutex_);
    failures_.insert_or_assign({std::string(operation), std::string(detail)}, code);
}

OSStatus ScriptedMidiService::begin(const Call& call) const {
    std::shared_ptr<const OnCall> onCall;
    OSStatus failure = noErr;
    {
        const Lock lock(mutex_);
        onCall = onCall_;
        for (const std::string_view detail : {call.detail, std::string_view()}) {
            if (failures_.empty() || failure != noErr) {
                break;
            }
            const auto planned = failures_.find({std::string(call.operation), std::string(detail)});
            failure = planned == failures_.end() ? noErr : planned->second;
        }
    }
    const OSStatus result = onCall ? (*onCall)(call) : noErr;
    return result != noErr ? result : failure;
}

void ScriptedMidiService::misuse(std::string_view operation, std::string_view what,
                                 MIDIObjectRef object) {
    misuses_->report(std::string(operation) + ": " + std::string(what) + " " +
                     std::to_string(object));
}

OSStatus ScriptedMidiService::judged(std::string_view operation, MIDIObjectRef object,
                                     OSStatus code) {
    switch (code) {
        case kMIDIInvalidPort:
            misuse(operation, "no such port, disposed of already, or of the wrong kind:", object);
            break;
        case kMIDIWrongEndpointType:
            misuse(operation, "of the wrong kind:", object);
            break;
        case kMIDIInvalidClient:
            if (object != 0) {  // 0 is what a failed MIDIClientCreate leaves
                misuse(operation, "no such client:", object);
            }
            break;
        case kMIDIObjectNotFound:
        case kMIDIUnknownEndpoint:
            if (object != 0 && !hasEverExisted(object)) {
                misuse(operation, "no object ever had the handle", object);
            }
            break;
        default:
            break;
    }
    return code;
}

void ScriptedMidiService::deliverNotification(std::int32_t messageID) {
    std::vector<Client> all;
    {
        const Lock lock(mutex_);
        for (const auto& [handle, client] : clients_) {
            all.push_back(client);
        }
    }
    const MIDINotification message{messageID, sizeof(MIDINotification)};
    for (const Client& client : all) {
        client.notify(&message, client.refCon);
    }
}

void ScriptedMidiService::obstruct(const ServiceState& state) {
    obstacle_ = state;
    reportChange();
}

void ScriptedMidiService::rescan() {
    if (std::exchange(hasRecoveredInSilence_, false)) {
        recover();
        dispatch();
    }
}

ServiceState ScriptedMidiService::state() {
    return obstacle_.obstacle == ServiceState::Obstacle::None ? SoftwareMidiService::state()
                                                              : obstacle_;
}

std::size_t ScriptedMidiService::clients() const {
    const Lock lock(mutex_);
    return clients_.size();
}

std::size_t ScriptedMidiService::countPorts(bool input) const {
    const Lock lock(mutex_);
    return static_cast<std::size_t>(
        std::count_if(ports_.begin(), ports_.end(),
                      [input](const auto& p) { return p.second.isInput == input; }));
}

std::size_t ScriptedMidiService::inputPortsCreated() const {
    const Lock lock(mutex_);
    return inputPortsCreated_;
}

std::size_t ScriptedMidiService::outputPortsCreated() const {
    const Lock lock(mutex_);
    return outputPortsCreated_;
}

std::size_t ScriptedMidiService::listeners(MIDIEndpointRef source) const {
    const Lock lock(mutex_);
    return static_cast<std::size_t>(std::count_if(
        ports_.begin(), ports_.end(),
        [source](const auto& port) { return port.second.connections.contains(source); }));
}

std::size_t ScriptedMidiService::publishedEndpoints() const {
    const Lock lock(mutex_);
    return published_.size();
}

std::vector<std::string> ScriptedMidiService::openPortNames() const {
    const Lock lock(mutex_);
    std::vector<std::string> names;
    for (const auto& [handle, port] : ports_) {
        names.push_back(port.name);
    }
    return names;
}

std::vector<RecordedPacketList> ScriptedMidiService::publishedBy(MIDIEndpointRef source) const {
    const Lock lock(mutex_);
    const auto lists = publishedLists_.find(source);
    return lists == publishedLists_.end() ? std::vector<RecordedPacketList>() : lists->second;
}

OSStatus ScriptedMidiService::MIDIClientCreate(std::string_view name, MIDINotifyProc notify,
                                               void* refCon, MIDIClientRef* client) {
    *client = 0;
    if (const OSStatus failed = begin({"MIDIClientCreate", 0, name}); failed != noErr) {
        return failed;
    }
    const OSStatus code = SoftwareMidiService::MIDIClientCreate(name, notify, refCon, client);
    const Lock lock(mutex_);
    clients_.emplace(*client, Client{notify, refCon});
    return code;
}

OSStatus ScriptedMidiService::MIDIClientDispose(MIDIClientRef client) {
    if (const OSStatus failed = begin({"MIDIClientDispose", client}); failed != noErr) {
        return failed;
    }
    {
        const Lock lock(mutex_);
        clients_.erase(client);
    }
    return judged("MIDIClientDispose", client, SoftwareMidiService::MIDIClientDispose(client));
}

bool ScriptedMidiService::listsNothing(std::string_view operation) const {
    return begin({operation}) != noErr || obstacle_.obstacle != ServiceState::Obstacle::None;
}

std::uint32_t ScriptedMidiService::MIDIGetNumberOfSources() {
    return listsNothing("MIDIGetNumberOfSources") ? 0
                                                  : SoftwareMidiService::MIDIGetNumberOfSources();
}

MIDIEndpointRef ScriptedMidiService::MIDIGetSource(std::uint32_t index) {
    return listsNothing("MIDIGetSource") ? 0 : SoftwareMidiService::MIDIGetSource(index);
}

std::uint32_t ScriptedMidiService::MIDIGetNumberOfDestinations() {
    return listsNothing("MIDIGetNumberOfDestinations")
               ? 0
               : SoftwareMidiService::MIDIGetNumberOfDestinations();
}

MIDIEndpointRef ScriptedMidiService::MIDIGetDestination(std::uint32_t index) {
    return listsNothing("MIDIGetDestination") ? 0 : SoftwareMidiService::MIDIGetDestination(index);
}

OSStatus ScriptedMidiService::MIDIObjectGetStringProperty(MIDIObjectRef object,
                                                          std::string_view property,
                                                          std::string* value) {
    constexpr std::string_view operation = "MIDIObjectGetStringProperty";
    const OSStatus failed = begin({operation, object, property});
    return failed != noErr
               ? failed
               : judged(operation, object,
                        SoftwareMidiService::MIDIObjectGetStringProperty(object, property, value));
}

OSStatus ScriptedMidiService::MIDIObjectGetIntegerProperty(MIDIObjectRef object,
                                                           std::string_view property,
                                                           std::int32_t* value) {
    constexpr std::string_view operation = "MIDIObjectGetIntegerProperty";
    const OSStatus failed = begin({operation, object, property});
    return failed != noErr
               ? failed
               : judged(operation, object,
                        SoftwareMidiService::MIDIObjectGetIntegerProperty(object, property, value));
}

OSStatus ScriptedMidiService::MIDIObjectGetDataProperty(MIDIObjectRef object,
                                                        std::string_view property,
                                                        std::vector<std::uint8_t>* value) {
    constexpr std::string_view operation = "MIDIObjectGetDataProperty";
    const OSStatus failed = begin({operation, object, property});
    return failed != noErr
               ? failed
               : judged(operation, object,
                        SoftwareMidiService::MIDIObjectGetDataProperty(object, property, value));
}

OSStatus ScriptedMidiService::MIDIObjectSetStringProperty(MIDIObjectRef object,
                                                          std::string_view property,
                                                          std::string_view value) {
    constexpr std::string_view operation = "MIDIObjectSetStringProperty";
    const OSStatus failed = begin({operation, object, property});
    return failed != noErr
               ? failed
               : judged(operation, object,
                        SoftwareMidiService::MIDIObjectSetStringProperty(object, property, value));
}

OSStatus ScriptedMidiService::MIDIObjectSetIntegerProperty(MIDIObjectRef object,
                                                           std::string_view property,
                                                           std::int32_t value) {
    constexpr std::string_view operation = "MIDIObjectSetIntegerProperty";
    const OSStatus failed = begin({operation, object, property});
    return failed != noErr
               ? failed
               : judged(operation, object,
                        SoftwareMidiService::MIDIObjectSetIntegerProperty(object, property, value));
}

OSStatus ScriptedMidiService::MIDIObjectFindByUniqueID(std::int32_t uniqueID, MIDIObjectRef* object,
                                                       MIDIObjectType* type) {
    const OSStatus failed = begin({"MIDIObjectFindByUniqueID"});
    return failed != noErr ? failed
                           : SoftwareMidiService::MIDIObjectFindByUniqueID(uniqueID, object, type);
}

OSStatus ScriptedMidiService::MIDIEndpointGetEntity(MIDIEndpointRef endpoint,
                                                    MIDIEntityRef* entity) {
    constexpr std::string_view operation = "MIDIEndpointGetEntity";
    const OSStatus failed = begin({operation, endpoint});
    return failed != noErr ? failed
                           : judged(operation, endpoint,
                                    SoftwareMidiService::MIDIEndpointGetEntity(endpoint, entity));
}

OSStatus ScriptedMidiService::MIDIEntityGetDevice(MIDIEntityRef entity, MIDIDeviceRef* device) {
    constexpr std::string_view operation = "MIDIEntityGetDevice";
    const OSStatus failed = begin({operation, entity});
    return failed != noErr ? failed
                           : judged(operation, entity,
                                    SoftwareMidiService::MIDIEntityGetDevice(entity, device));
}

OSStatus ScriptedMidiService::opened(OSStatus code, MIDIPortRef port, bool isInput,
                                     std::string_view name) {
    if (code == noErr) {
        const Lock lock(mutex_);
        ++(isInput ? inputPortsCreated_ : outputPortsCreated_);
        ports_.emplace(port, Port{isInput, std::string(name), {}, {}});
    }
    return code;
}

bool ScriptedMidiService::isOpen(MIDIPortRef port, bool isInput) const {
    const Lock lock(mutex_);
    const auto found = ports_.find(port);
    return found != ports_.end() && found->second.isInput == isInput;
}

OSStatus ScriptedMidiService::MIDIInputPortCreate(MIDIClientRef client, std::string_view name,
                                                  MIDIReadProc read, void* readProcRefCon,
                                                  MIDIPortRef* port) {
    *port = 0;
    constexpr std::string_view operation = "MIDIInputPortCreate";
    if (const OSStatus failed = begin({operation, client, name}); failed != noErr) {
        return failed;
    }
    const OSStatus code =
        SoftwareMidiService::MIDIInputPortCreate(client, name, read, readProcRefCon, port);
    return opened(judged(operation, client, code), *port, true, name);
}

OSStatus ScriptedMidiService::MIDIOutputPortCreate(MIDIClientRef client, std::string_view name,
                                                   MIDIPortRef* port) {
    *port = 0;
    constexpr std::string_view operation = "MIDIOutputPortCreate";
    if (const OSStatus failed = begin({operation, client, name}); failed != noErr) {
        return failed;
    }
    const OSStatus code = SoftwareMidiService::MIDIOutputPortCreate(client, name, port);
    return opened(judged(operation, client, code), *port, false, name);
}

OSStatus ScriptedMidiService::MIDIPortConnectSource(MIDIPortRef port, MIDIEndpointRef source,
                                                    void* srcConnRefCon) {
    constexpr std::string_view operation = "MIDIPortConnectSource";
    const OSStatus failed = begin({operation, source});
    if (isOpen(port, true)) {
        const Lock lock(mutex_);
        ports_[port].connectionsTried.insert(source);
    }
    if (failed != noErr) {
        return failed;
    }
    const OSStatus code = SoftwareMidiService::MIDIPortConnectSource(port, source, srcConnRefCon);
    if (code == noErr) {
        const Lock lock(mutex_);
        ports_[port].connections.insert(source);
    }
    return judged(operation, source, code);
}

OSStatus ScriptedMidiService::MIDIPortDisconnectSource(MIDIPortRef port, MIDIEndpointRef source) {
    constexpr std::string_view operation = "MIDIPortDisconnectSource";
    if (const OSStatus failed = begin({operation, source}); failed != noErr) {
        return failed;
    }
    const OSStatus code = SoftwareMidiService::MIDIPortDisconnectSource(port, source);
    if (isOpen(port, true)) {
        const Lock lock(mutex_);
        Port& open = ports_[port];
        open.connections.erase(source);
        if (!open.connectionsTried.contains(source)) {
            misuse(operation, "was never connected:", source);
            return kMIDINoConnection;
        }
    }
    return judged(operation, source, code);
}

OSStatus ScriptedMidiService::MIDIPortDispose(MIDIPortRef port) {
    if (const OSStatus failed = begin({"MIDIPortDispose", port}); failed != noErr) {
        return failed;
    }
    {
        const Lock lock(mutex_);
        ports_.erase(port);
    }
    return judged("MIDIPortDispose", port, SoftwareMidiService::MIDIPortDispose(port));
}

OSStatus ScriptedMidiService::published(OSStatus code, MIDIEndpointRef endpoint) {
    if (code != noErr) {
        return code;
    }
    const Lock lock(mutex_);
    published_.insert(endpoint);
    return publishedGetUniqueIDs_ ? SoftwareMidiService::MIDIObjectSetIntegerProperty(
                                        endpoint, kMIDIPropertyUniqueID, ++lastUniqueID_)
                                  : noErr;
}

OSStatus ScriptedMidiService::MIDISourceCreate(MIDIClientRef client, std::string_view name,
                                               MIDIEndpointRef* source) {
    *source = 0;
    constexpr std::string_view operation = "MIDISourceCreate";
    if (const OSStatus failed = begin({operation, client, name}); failed != noErr) {
        return failed;
    }
    const OSStatus code = SoftwareMidiService::MIDISourceCreate(client, name, source);
    return published(judged(operation, client, code), *source);
}

OSStatus ScriptedMidiService::MIDIDestinationCreate(MIDIClientRef client, std::string_view name,
                                                    MIDIReadProc read, void* readProcRefCon,
                                                    MIDIEndpointRef* destination) {
    *destination = 0;
    constexpr std::string_view operation = "MIDIDestinationCreate";
    if (const OSStatus failed = begin({operation, client, name}); failed != noErr) {
        return failed;
    }
    const OSStatus code =
        SoftwareMidiService::MIDIDestinationCreate(client, name, read, readProcRefCon, destination);
    return published(judged(operation, client, code), *destination);
}

OSStatus ScriptedMidiService::MIDIEndpointDispose(MIDIEndpointRef endpoint) {
    constexpr std::string_view operation = "MIDIEndpointDispose";
    if (const OSStatus failed = begin({operation, endpoint}); failed != noErr) {
        return failed;
    }
    {
        const Lock lock(mutex_);
        if (published_.erase(endpoint) == 0 && endpoint != 0) {
            misuse(operation, "not published here, or disposed of already:", endpoint);
        }
    }
    return SoftwareMidiService::MIDIEndpointDispose(endpoint);
}

OSStatus ScriptedMidiService::MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) {
    constexpr std::string_view operation = "MIDIReceived";
    if (const OSStatus failed = begin({operation, source}); failed != noErr) {
        return failed;
    }
    if (list == nullptr) {
        misuse(operation, "no packet list from", source);
    }
    const OSStatus code = SoftwareMidiService::MIDIReceived(source, list);
    if (code == noErr) {
        const Lock lock(mutex_);
        publishedLists_[source].push_back(recordOf(*list));
    }
    return judged(operation, source, code);
}

}  // namespace support
