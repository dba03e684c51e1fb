// The endpoints that clients publish.

#include <utility>

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {

OSStatus SoftwareMidiService::publish(std::string_view operation, MIDIClientRef client,
                                      std::unique_ptr<Endpoint> endpoint, MIDIReadProc read,
                                      void* refCon, MIDIEndpointRef* handle) {
    *handle = 0;
    const std::string name = endpoint->strings_.find(kMIDIPropertyName)->second;
    if (const OSStatus failed = begin({operation, client, name}); failed != noErr) {
        return failed;
    }
    const Lock lock(mutex_);
    if (!isClient(lock, operation, client)) {
        return kMIDIInvalidClient;
    }
    *handle = ++lastObject_;
    endpoint->handle_ = *handle;
    if (publishedGetUniqueIDs_) {
        endpoint->integers_.emplace(kMIDIPropertyUniqueID, ++lastUniqueID_);
    }
    present_.emplace(*handle, endpoint.get());
    published_.emplace(*handle, Published{read, refCon});
    (endpoint->type_ == kMIDIObjectType_Source ? sources_ : destinations_).push_back(*handle);
    objects_.push_back(std::move(endpoint));
    return noErr;
}

OSStatus SoftwareMidiService::MIDISourceCreate(MIDIClientRef client, std::string_view name,
                                               MIDIEndpointRef* source) {
    return publish(
        "MIDISourceCreate", client,
        std::unique_ptr<Endpoint>(new Source(*this, kMIDIObjectType_Source, name, nullptr)),
        nullptr, nullptr, source);
}

OSStatus SoftwareMidiService::MIDIDestinationCreate(MIDIClientRef client, std::string_view name,
                                                    MIDIReadProc read, void* readProcRefCon,
                                                    MIDIEndpointRef* destination) {
    return publish("MIDIDestinationCreate", client,
                   std::unique_ptr<Endpoint>(
                       new Destination(*this, kMIDIObjectType_Destination, name, nullptr)),
                   read, readProcRefCon, destination);
}

OSStatus SoftwareMidiService::MIDIEndpointDispose(MIDIEndpointRef endpoint) {
    constexpr std::string_view operation = "MIDIEndpointDispose";
    if (const OSStatus failed = begin({operation, endpoint}); failed != noErr) {
        return failed;
    }
    Lock lock(mutex_);
    if (published_.erase(endpoint) == 0) {
        if (endpoint != 0) {
            misuse(operation, "not published here, or disposed of already:", endpoint);
        }
        return kMIDIUnknownEndpoint;
    }
    withdraw(lock, *present_.at(endpoint));
    waitForCallbacks(lock, endpoint);
    return noErr;
}

}  // namespace platform::software
