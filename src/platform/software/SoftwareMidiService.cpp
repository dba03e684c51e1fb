#include "platform/software/SoftwareMidiService.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace platform::software {

SoftwareMidiService::SoftwareMidiService() : eventFd_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

SoftwareMidiService::~SoftwareMidiService() {
    for (const auto& [handle, port] : ports_) {
        misuse("~", "left open: port " + port.name, handle);
    }
    for (const auto& [handle, published] : published_) {
        misuse("~", "left behind: published endpoint", handle);
    }
    if (eventFd_ >= 0) {
        close(eventFd_);
    }
}

void SoftwareMidiService::giveUniqueIDsToPublished(bool give) {
    const std::lock_guard lock(mutex_);
    publishedGetUniqueIDs_ = give;
}

void SoftwareMidiService::onCall(OnCall onCall) {
    const std::lock_guard lock(mutex_);
    onCall_ = onCall ? std::make_shared<const OnCall>(std::move(onCall)) : nullptr;
}

void SoftwareMidiService::fail(std::string_view operation, OSStatus code, std::string_view detail) {
    const std::lock_guard lock(mutex_);
    failures_.insert_or_assign({std::string(operation), std::string(detail)}, code);
}

std::size_t SoftwareMidiService::clients() const {
    const std::lock_guard lock(mutex_);
    return clients_.size();
}

std::size_t SoftwareMidiService::countPorts(bool input) const {
    const std::lock_guard lock(mutex_);
    return static_cast<std::size_t>(
        std::count_if(ports_.begin(), ports_.end(),
                      [input](const auto& p) { return p.second.isInput == input; }));
}

std::size_t SoftwareMidiService::openInputPorts() const {
    return countPorts(true);
}

std::size_t SoftwareMidiService::openOutputPorts() const {
    return countPorts(false);
}

std::size_t SoftwareMidiService::inputPortsCreated() const {
    const std::lock_guard lock(mutex_);
    return inputPortsCreated_;
}

std::size_t SoftwareMidiService::outputPortsCreated() const {
    const std::lock_guard lock(mutex_);
    return outputPortsCreated_;
}

std::size_t SoftwareMidiService::listeners(MIDIEndpointRef source) const {
    const std::lock_guard lock(mutex_);
    return static_cast<std::size_t>(std::count_if(
        ports_.begin(), ports_.end(),
        [source](const auto& port) { return port.second.connections.count(source) != 0; }));
}

std::size_t SoftwareMidiService::publishedEndpoints() const {
    const std::lock_guard lock(mutex_);
    return published_.size();
}

std::vector<std::string> SoftwareMidiService::openPortNames() const {
    const std::lock_guard lock(mutex_);
    std::vector<std::string> names;
    for (const auto& [handle, port] : ports_) {
        names.push_back(port.name);
    }
    return names;
}

OSStatus SoftwareMidiService::begin(const Call& call) {
    std::shared_ptr<const OnCall> onCall;
    OSStatus failure = noErr;
    {
        const std::lock_guard lock(mutex_);
        onCall = onCall_;
        if (!failures_.empty()) {
            for (const std::string_view detail : {call.detail, std::string_view()}) {
                const auto planned =
                    failures_.find({std::string(call.operation), std::string(detail)});
                if (planned != failures_.end() && failure == noErr) {
                    failure = planned->second;
                }
            }
        }
    }
    const OSStatus result = onCall ? (*onCall)(call) : noErr;
    return result != noErr ? result : failure;
}

void SoftwareMidiService::misuse(std::string_view operation, std::string_view what,
                                 MIDIObjectRef object) {
    misuses_->report(std::string(operation) + ": " + std::string(what) + " " +
                     std::to_string(object));
}

Object* SoftwareMidiService::find(const Lock&, std::string_view operation, MIDIObjectRef object) {
    const auto found = present_.find(object);
    if (found != present_.end()) {
        return found->second;
    }
    if (object > lastObject_) {
        misuse(operation, "no object ever had the handle", object);
    }
    return nullptr;
}

SoftwareMidiService::Port* SoftwareMidiService::findPort(const Lock&, std::string_view operation,
                                                         MIDIPortRef port, bool input) {
    const auto found = ports_.find(port);
    if (found == ports_.end()) {
        misuse(operation, "no such port, or disposed of already:", port);
        return nullptr;
    }
    if (found->second.isInput != input) {
        misuse(operation, input ? "not an input port:" : "not an output port:", port);
        return nullptr;
    }
    return &found->second;
}

bool SoftwareMidiService::isClient(const Lock&, std::string_view operation, MIDIClientRef client) {
    if (clients_.count(client) != 0) {
        return true;
    }
    if (client != 0) {  // 0 is what a failed MIDIClientCreate leaves
        misuse(operation, "no such client:", client);
    }
    return false;
}

Object* SoftwareMidiService::objectWithUniqueID(const Lock&, std::int32_t uniqueID) const {
    for (const auto& [handle, object] : present_) {
        const auto id = object->integers_.find(kMIDIPropertyUniqueID);
        if (id != object->integers_.end() && id->second == uniqueID) {
            return object;
        }
    }
    return nullptr;
}

OSStatus SoftwareMidiService::MIDIClientCreate(std::string_view name, MIDINotifyProc notify,
                                               void* refCon, MIDIClientRef* client) {
    *client = 0;
    if (const OSStatus failed = begin({"MIDIClientCreate", 0, name}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    *client = ++lastPort_;
    clients_.emplace(*client, Client{notify, refCon});
    return noErr;
}

OSStatus SoftwareMidiService::MIDIClientDispose(MIDIClientRef client) {
    if (const OSStatus failed = begin({"MIDIClientDispose", client}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    if (!isClient(lock, "MIDIClientDispose", client)) {
        return kMIDIInvalidClient;
    }
    clients_.erase(client);
    return noErr;
}

bool SoftwareMidiService::listsNothing(const Lock&) const {
    return clients_.empty() || obstacle_.obstacle != ServiceState::Obstacle::None;
}

std::uint32_t SoftwareMidiService::MIDIGetNumberOfSources() {
    if (begin({"MIDIGetNumberOfSources"}) != noErr) {
        return 0;
    }
    const Lock lock(mutex_);
    return listsNothing(lock) ? 0 : static_cast<std::uint32_t>(sources_.size());
}

MIDIEndpointRef SoftwareMidiService::MIDIGetSource(std::uint32_t index) {
    if (begin({"MIDIGetSource"}) != noErr) {
        return 0;
    }
    const Lock lock(mutex_);
    return listsNothing(lock) || index >= sources_.size() ? 0 : sources_[index];
}

std::uint32_t SoftwareMidiService::MIDIGetNumberOfDestinations() {
    if (begin({"MIDIGetNumberOfDestinations"}) != noErr) {
        return 0;
    }
    const Lock lock(mutex_);
    return listsNothing(lock) ? 0 : static_cast<std::uint32_t>(destinations_.size());
}

MIDIEndpointRef SoftwareMidiService::MIDIGetDestination(std::uint32_t index) {
    if (begin({"MIDIGetDestination"}) != noErr) {
        return 0;
    }
    const Lock lock(mutex_);
    return listsNothing(lock) || index >= destinations_.size() ? 0 : destinations_[index];
}

OSStatus SoftwareMidiService::createPort(std::string_view operation, MIDIClientRef client,
                                         Port port, MIDIPortRef* handle) {
    *handle = 0;
    if (const OSStatus failed = begin({operation, client, port.name}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    if (!isClient(lock, operation, client)) {
        return kMIDIInvalidClient;
    }
    *handle = ++lastPort_;
    ++(port.isInput ? inputPortsCreated_ : outputPortsCreated_);
    ports_.emplace(*handle, std::move(port));
    return noErr;
}

OSStatus SoftwareMidiService::MIDIInputPortCreate(MIDIClientRef client, std::string_view name,
                                                  MIDIReadProc read, void* readProcRefCon,
                                                  MIDIPortRef* port) {
    return createPort("MIDIInputPortCreate", client,
                      Port{true, std::string(name), read, readProcRefCon, {}, {}}, port);
}

OSStatus SoftwareMidiService::MIDIOutputPortCreate(MIDIClientRef client, std::string_view name,
                                                   MIDIPortRef* port) {
    return createPort("MIDIOutputPortCreate", client,
                      Port{false, std::string(name), nullptr, nullptr, {}, {}}, port);
}

OSStatus SoftwareMidiService::MIDIPortConnectSource(MIDIPortRef port, MIDIEndpointRef source,
                                                    void* srcConnRefCon) {
    const OSStatus failed = begin({"MIDIPortConnectSource", source});
    const Lock lock(mutex_);
    Port* const found = findPort(lock, "MIDIPortConnectSource", port, true);
    if (found == nullptr) {
        return kMIDIInvalidPort;
    }
    found->connectionsTried.insert(source);
    if (failed != noErr) {
        return failed;
    }
    const Object* const object = find(lock, "MIDIPortConnectSource", source);
    if (object == nullptr) {
        return kMIDIUnknownEndpoint;
    }
    if (object->type_ != kMIDIObjectType_Source) {
        misuse("MIDIPortConnectSource", "not a source:", source);
        return kMIDIWrongEndpointType;
    }
    found->connections.insert_or_assign(source, srcConnRefCon);
    return noErr;
}

OSStatus SoftwareMidiService::MIDIPortDisconnectSource(MIDIPortRef port, MIDIEndpointRef source) {
    if (const OSStatus failed = begin({"MIDIPortDisconnectSource", source}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    Port* const found = findPort(lock, "MIDIPortDisconnectSource", port, true);
    if (found == nullptr) {
        return kMIDIInvalidPort;
    }
    if (found->connectionsTried.count(source) == 0) {
        misuse("MIDIPortDisconnectSource", "was never connected:", source);
        return kMIDINoConnection;
    }
    if (find(lock, "MIDIPortDisconnectSource", source) == nullptr) {
        return kMIDIUnknownEndpoint;
    }
    return found->connections.erase(source) != 0 ? noErr : kMIDINoConnection;
}

OSStatus SoftwareMidiService::MIDIPortDispose(MIDIPortRef port) {
    if (const OSStatus failed = begin({"MIDIPortDispose", port}); failed != noErr) {
        return failed;
    }
    Lock lock(mutex_);
    if (ports_.erase(port) == 0) {
        misuse("MIDIPortDispose", "no such port, or disposed of already:", port);
        return kMIDIInvalidPort;
    }
    waitForCallbacks(lock, port);
    return noErr;
}

}  // namespace platform::software
