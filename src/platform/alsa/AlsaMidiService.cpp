#include "platform/alsa/AlsaMidiService.h"

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <utility>

namespace platform::alsa {

AlsaMidiService::AlsaMidiService(std::string_view programName, SequencerNode node)
    : programName_(programName),
      node_(std::move(node)),
      watch_(epoll_create1(EPOLL_CLOEXEC)),
      timer_(timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC)),
      wakeUp_(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      input_(programName_),
      output_(programName_ + " (output)", [this] { wakeUp(); }) {
    watch(timer_);
    watch(wakeUp_);
}

AlsaMidiService::~AlsaMidiService() {
    end();
    for (const int descriptor : {watch_, timer_, wakeUp_}) {
        if (descriptor >= 0) {
            close(descriptor);
        }
    }
}

void AlsaMidiService::end() {
    output_.end();
}

OSStatus AlsaMidiService::MIDIClientCreate(std::string_view /*name*/, MIDINotifyProc notify,
                                           void* refCon, MIDIClientRef* client) {
    const Lock lock(mutex_);
    if (clients_.empty()) {
        lookAfresh(lock);  // what has gone since the last look was never there for it
        if (stateChangeDue_) {
            wakeUp();
        }
    }
    *client = ++lastHandle_;
    clients_.emplace(*client, Client{notify, refCon});
    return noErr;
}

OSStatus AlsaMidiService::MIDIClientDispose(MIDIClientRef client) {
    const Lock lock(mutex_);
    return clients_.erase(client) != 0 ? noErr : kMIDIInvalidClient;
}

std::uint32_t AlsaMidiService::MIDIGetNumberOfSources() {
    const Lock lock(mutex_);
    return clients_.empty() ? 0 : static_cast<std::uint32_t>(sources_.size());
}

MIDIEndpointRef AlsaMidiService::MIDIGetSource(std::uint32_t index) {
    const Lock lock(mutex_);
    return clients_.empty() || index >= sources_.size() ? 0 : sources_[index];
}

std::uint32_t AlsaMidiService::MIDIGetNumberOfDestinations() {
    const Lock lock(mutex_);
    return clients_.empty() ? 0 : static_cast<std::uint32_t>(destinations_.size());
}

MIDIEndpointRef AlsaMidiService::MIDIGetDestination(std::uint32_t index) {
    const Lock lock(mutex_);
    return clients_.empty() || index >= destinations_.size() ? 0 : destinations_[index];
}

OSStatus AlsaMidiService::MIDIInputPortCreate(MIDIClientRef client, std::string_view name,
                                              MIDIReadProc read, void* readProcRefCon,
                                              MIDIPortRef* port) {
    *port = 0;
    {
        const Lock lock(mutex_);
        if (clients_.count(client) == 0) {
            return kMIDIInvalidClient;
        }
    }
    if (read == nullptr) {
        return kMIDIInvalidPort;
    }
    const int number = input_.openInput(name, read, readProcRefCon);
    if (number < 0) {
        return kMIDIServerStartErr;
    }
    const Lock lock(mutex_);
    *port = ++lastHandle_;
    ports_.emplace(*port, Port{true, number, {}});
    return noErr;
}

OSStatus AlsaMidiService::MIDIOutputPortCreate(MIDIClientRef client, std::string_view /*name*/,
                                               MIDIPortRef* port) {
    *port = 0;
    const Lock lock(mutex_);
    if (clients_.count(client) == 0) {
        return kMIDIInvalidClient;
    }
    *port = ++lastHandle_;
    ports_.emplace(*port, Port{});
    return noErr;
}

OSStatus AlsaMidiService::MIDIPortConnectSource(MIDIPortRef port, MIDIEndpointRef source,
                                                void* srcConnRefCon) {
    const Lock lock(mutex_);
    const auto found = ports_.find(port);
    if (found == ports_.end() || !found->second.isInput) {
        return kMIDIInvalidPort;
    }
    const std::optional<PortDescription> description = portOf(lock, source);
    if (!description) {
        return kMIDIUnknownEndpoint;
    }
    if (description->direction != Direction::Source) {
        return kMIDIWrongEndpointType;
    }
    if (input_.connect(found->second.number, description->address, srcConnRefCon) < 0) {
        return kMIDINoConnection;
    }
    found->second.connections.insert_or_assign(source, description->address);
    return noErr;
}

OSStatus AlsaMidiService::MIDIPortDisconnectSource(MIDIPortRef port, MIDIEndpointRef source) {
    const Lock lock(mutex_);
    const auto found = ports_.find(port);
    if (found == ports_.end() || !found->second.isInput) {
        return kMIDIInvalidPort;
    }
    const auto connection = found->second.connections.find(source);
    if (connection == found->second.connections.end()) {
        return kMIDINoConnection;
    }
    // The source may have gone; then there is nothing left to part.
    input_.disconnect(found->second.number, connection->second);
    found->second.connections.erase(connection);
    return noErr;
}

OSStatus AlsaMidiService::MIDIPortDispose(MIDIPortRef port) {
    int number = -1;
    {
        const Lock lock(mutex_);
        const auto found = ports_.find(port);
        if (found == ports_.end()) {
            return kMIDIInvalidPort;
        }
        number = found->second.number;
        ports_.erase(found);
    }
    input_.close(number);
    return noErr;
}

OSStatus AlsaMidiService::MIDISend(MIDIPortRef port, MIDIEndpointRef destination,
                                   const MIDIPacketList* list) {
    if (list == nullptr) {
        return kMIDIObjectNotFound;
    }
    std::optional<PortDescription> description;
    bool isThere = false;
    {
        const Lock lock(mutex_);
        const auto found = ports_.find(port);
        if (found == ports_.end() || found->second.isInput) {
            return kMIDIInvalidPort;
        }
        description = portOf(lock, destination);
        if (description && description->direction != Direction::Destination) {
            return kMIDIWrongEndpointType;
        }
        readAnnouncementsAhead(lock);
        isThere = description && !hasGone(lock, *description);
    }
    if (!isThere) {
        output_.sendInVain(destination, *list);
        return kMIDIUnknownEndpoint;
    }
    return output_.send({destination, *description}, *list);
}

std::vector<std::string> AlsaMidiService::connectedPrograms(MIDIEndpointRef endpoint) {
    const Lock lock(mutex_);
    const std::optional<PortDescription> port = portOf(lock, endpoint);
    return port && announcements_ != nullptr
               ? programsConnectedTo(announcements_->sequencer(), port->address, port->direction)
               : std::vector<std::string>();
}

OSStatus AlsaMidiService::publish(MIDIClientRef client, std::string_view name, Direction direction,
                                  MIDIReadProc read, void* readProcRefCon,
                                  MIDIEndpointRef* endpoint) {
    *endpoint = 0;
    const Lock lock(mutex_);
    if (clients_.count(client) == 0) {
        return kMIDIInvalidClient;
    }
    const int number = direction == Direction::Source
                           ? input_.publishSource(name)
                           : input_.publishDestination(name, read, readProcRefCon);
    if (number < 0) {
        return kMIDIServerStartErr;
    }
    *endpoint = ++lastHandle_;
    Published published;
    published.number = number;
    published.direction = direction;
    published.strings.emplace(kMIDIPropertyName, name);
    published_.emplace(*endpoint, std::move(published));
    (direction == Direction::Source ? sources_ : destinations_).push_back(*endpoint);
    return noErr;
}

OSStatus AlsaMidiService::MIDISourceCreate(MIDIClientRef client, std::string_view name,
                                           MIDIEndpointRef* source) {
    return publish(client, name, Direction::Source, nullptr, nullptr, source);
}

OSStatus AlsaMidiService::MIDIDestinationCreate(MIDIClientRef client, std::string_view name,
                                                MIDIReadProc read, void* readProcRefCon,
                                                MIDIEndpointRef* destination) {
    if (read == nullptr) {
        *destination = 0;
        return kMIDIInvalidPort;
    }
    return publish(client, name, Direction::Destination, read, readProcRefCon, destination);
}

OSStatus AlsaMidiService::MIDIEndpointDispose(MIDIEndpointRef endpoint) {
    int number = -1;
    {
        const Lock lock(mutex_);
        const auto own = published_.find(endpoint);
        if (own == published_.end()) {
            return kMIDIUnknownEndpoint;
        }
        number = own->second.number;
        published_.erase(own);
        sources_ = endpointsOf(lock, Direction::Source);
        destinations_ = endpointsOf(lock, Direction::Destination);
    }
    output_.forget(endpoint);
    input_.close(number);
    return noErr;
}

OSStatus AlsaMidiService::MIDIReceived(MIDIEndpointRef source, const MIDIPacketList* list) {
    if (list == nullptr) {
        return kMIDIObjectNotFound;
    }
    int number = -1;
    {
        const Lock lock(mutex_);
        const auto own = published_.find(source);
        if (own == published_.end()) {
            return list_.find(source) == nullptr ? kMIDIUnknownEndpoint : kMIDIWrongEndpointType;
        }
        if (own->second.direction != Direction::Source) {
            return kMIDIWrongEndpointType;
        }
        number = own->second.number;
    }
    input_.give(number, *list);
    return noErr;
}

}  // namespace platform::alsa
