// The endpoints that clients publish.

#include <utility>

#include "platform/software/SoftwareMidiService.h"

namespace platform::software {

OSStatus SoftwareMidiService::publish(MIDIClientRef client, std::unique_ptr<Endpoint> endpoint,
                                      MIDIReadProc read, void* refCon, MIDIEndpointRef* handle) {
    *handle = 0;
    const Lock lock(mutex_);
    if (!clients_.contains(client)) {
        return kMIDIInvalidClient;
    }
    *handle = ++lastObject_;
    endpoint->handle_ = *handle;
    present_.emplace(*handle, endpoint.get());
    published_.emplace(*handle, Published{read, refCon});
    (endpoint->type_ == kMIDIObjectType_Source ? sources_ : destinations_).push_back(*handle);
    objects_.push_back(std::move(endpoint));
    return noErr;
}

OSStatus SoftwareMidiService::MIDISourceCreate(MIDIClientRef client, std::string_view name,
                                               MIDIEndpointRef* source) {
    return publish(
        client, std::unique_ptr<Endpoint>(new Source(*this, kMIDIObjectType_Source, name, nullptr)),
        nullptr, nullptr, source);
}

OSStatus SoftwareMidiService::MIDIDestinationCreate(MIDIClientRef client, std::string_view name,
                                                    MIDIReadProc read, void* readProcRefCon,
                                                    MIDIEndpointRef* destination) {
    return publish(client,
                   std::unique_ptr<Endpoint>(
                       new Destination(*this, kMIDIObjectType_Destination, name, nullptr)),
                   read, readProcRefCon, destination);
}

OSStatus SoftwareMidiService::MIDIEndpointDispose(MIDIEndpointRef endpoint) {
    Lock lock(mutex_);
    if (published_.erase(endpoint) == 0) {
        return kMIDIUnknownEndpoint;
    }
    withdraw(lock, *present_.at(endpoint));
    waitForCallbacks(lock, endpoint);
    return noErr;
}

}  // namespace platform::software
