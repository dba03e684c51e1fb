#include "platform/software/SoftwareMidiService.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace platform::software {

SoftwareMidiService::SoftwareMidiService() : eventFd_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

SoftwareMidiService::~SoftwareMidiService() {
    if (eventFd_ >= 0) {
        close(eventFd_);
    }
}

Destination* SoftwareMidiService::destination(MIDIEndpointRef handle) const {
    const Lock lock(mutex_);
    const auto found = present_.find(handle);
    const bool isOne = found != present_.end() &&
                       found->second->type_ == kMIDIObjectType_Destination &&
                       !published_.contains(handle);
    return isOne ? static_cast<Destination*>(found->second) : nullptr;
}

bool SoftwareMidiService::hasEverExisted(MIDIObjectRef handle) const {
    const Lock lock(mutex_);
    return handle != 0 && handle <= lastObject_;
}

Object* SoftwareMidiService::find(const Lock&, MIDIObjectRef object) const {
    const auto found = present_.find(object);
    return found == present_.end() ? nullptr : found->second;
}

SoftwareMidiService::Port* SoftwareMidiService::findPort(const Lock&, MIDIPortRef port,
                                                         bool input) {
    const auto found = ports_.find(port);
    return found == ports_.end() || found->second.isInput != input ? nullptr : &found->second;
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

OSStatus SoftwareMidiService::MIDIClientCreate(std::string_view, MIDINotifyProc notify,
                                               void* refCon, MIDIClientRef* client) {
    *client = 0;
    const Lock lock(mutex_);
    *client = ++lastPort_;
    clients_.emplace(*client, Client{notify, refCon});
    return noErr;
}

OSStatus SoftwareMidiService::MIDIClientDispose(MIDIClientRef client) {
    const Lock lock(mutex_);
    return clients_.erase(client) == 0 ? kMIDIInvalidClient : noErr;
}

std::uint32_t SoftwareMidiService::MIDIGetNumberOfSources() {
    const Lock lock(mutex_);
    return clients_.empty() ? 0 : static_cast<std::uint32_t>(sources_.size());
}

MIDIEndpointRef SoftwareMidiService::MIDIGetSource(std::uint32_t index) {
    const Lock lock(mutex_);
    return clients_.empty() || index >= sources_.size() ? 0 : sources_[index];
}

std::uint32_t SoftwareMidiService::MIDIGetNumberOfDestinations() {
    const Lock lock(mutex_);
    return clients_.empty() ? 0 : static_cast<std::uint32_t>(destinations_.size());
}

MIDIEndpointRef SoftwareMidiService::MIDIGetDestination(std::uint32_t index) {
    const Lock lock(mutex_);
    return clients_.empty() || index >= destinations_.size() ? 0 : destinations_[index];
}

OSStatus SoftwareMidiService::createPort(MIDIClientRef client, Port port, MIDIPortRef* handle) {
    *handle = 0;
    const Lock lock(mutex_);
    if (!clients_.contains(client)) {
        return kMIDIInvalidClient;
    }
    *handle = ++lastPort_;
    ports_.emplace(*handle, std::move(port));
    return noErr;
}

OSStatus SoftwareMidiService::MIDIInputPortCreate(MIDIClientRef client, std::string_view,
                                                  MIDIReadProc read, void* readProcRefCon,
                                                  MIDIPortRef* port) {
    return createPort(client, Port{true, read, readProcRefCon, {}}, port);
}

OSStatus SoftwareMidiService::MIDIOutputPortCreate(MIDIClientRef client, std::string_view,
                                                   MIDIPortRef* port) {
    return createPort(client, Port{false, nullptr, nullptr, {}}, port);
}

OSStatus SoftwareMidiService::MIDIPortConnectSource(MIDIPortRef port, MIDIEndpointRef source,
                                                    void* srcConnRefCon) {
    const Lock lock(mutex_);
    Port* const found = findPort(lock, port, true);
    if (found == nullptr) {
        return kMIDIInvalidPort;
    }
    const Object* const object = find(lock, source);
    if (object == nullptr) {
        return kMIDIUnknownEndpoint;
    }
    if (object->type_ != kMIDIObjectType_Source) {
        return kMIDIWrongEndpointType;
    }
    found->connections.insert_or_assign(source, srcConnRefCon);
    return noErr;
}

OSStatus SoftwareMidiService::MIDIPortDisconnectSource(MIDIPortRef port, MIDIEndpointRef source) {
    const Lock lock(mutex_);
    Port* const found = findPort(lock, port, true);
    if (found == nullptr) {
        return kMIDIInvalidPort;
    }
    if (found->connections.erase(source) != 0) {
        return noErr;
    }
    return find(lock, source) == nullptr ? kMIDIUnknownEndpoint : kMIDINoConnection;
}

OSStatus SoftwareMidiService::MIDIPortDispose(MIDIPortRef port) {
    Lock lock(mutex_);
    if (ports_.erase(port) == 0) {
        return kMIDIInvalidPort;
    }
    waitForCallbacks(lock, port);
    return noErr;
}

}  // namespace platform::software
