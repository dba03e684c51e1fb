#include "platform/alsa/EndpointList.h"

#include <algorithm>

#include "platform/alsa/uniqueIDFor.h"

namespace platform::alsa {
namespace {

bool haveTheSameNames(const PortDescription& a, const PortDescription& b) {
    return a.clientName == b.clientName && a.portName == b.portName && a.direction == b.direction;
}

const PortDescription* find(const std::vector<PortDescription>& ports, const Address& address,
                            Direction direction) {
    const auto found = std::find_if(ports.begin(), ports.end(), [&](const PortDescription& port) {
        return port.address == address && port.direction == direction;
    });
    return found == ports.end() ? nullptr : &*found;
}

/// A name as it is given out; that of the bus has its mark.
std::string marked(const PortDescription& port, const std::string& name) {
    return port.isBus ? std::string(busMark) + name : name;
}

}  // namespace

std::string ListedEndpoint::name() const {
    const std::string name = marked(port, port.portName);
    return occurrence == 0 ? name : name + " (" + std::to_string(occurrence + 1) + ")";
}

bool EndpointList::follow(const std::vector<PortDescription>& present,
                          const std::set<Address>& exited) {
    const bool gone = removeGone(present, exited);
    const bool renamed = followNames(present);
    const bool added = addNew(present);
    return gone || renamed || added;
}

bool EndpointList::removeGone(const std::vector<PortDescription>& present,
                              const std::set<Address>& exited) {
    const std::size_t before = endpoints_.size();
    endpoints_.erase(
        std::remove_if(endpoints_.begin(), endpoints_.end(),
                       [&](const ListedEndpoint& endpoint) {
                           const PortDescription* const now =
                               alsa::find(present, endpoint.port.address, endpoint.port.direction);
                           return now == nullptr || exited.count(endpoint.port.address) != 0 ||
                                  now->ownerPID != endpoint.port.ownerPID;
                       }),
        endpoints_.end());
    for (auto device = devices_.begin(); device != devices_.end();) {
        const bool isThere = std::any_of(endpoints_.begin(), endpoints_.end(), [&](const auto& e) {
            return e.entity == device->second.entity;
        });
        device = isThere ? std::next(device) : devices_.erase(device);
    }
    return endpoints_.size() != before;
}

bool EndpointList::followNames(const std::vector<PortDescription>& present) {
    bool changed = false;
    for (ListedEndpoint& endpoint : endpoints_) {
        const PortDescription* const now =
            alsa::find(present, endpoint.port.address, endpoint.port.direction);
        if (now == nullptr || *now == endpoint.port) {
            continue;
        }
        const bool renamed = !haveTheSameNames(*now, endpoint.port);
        endpoint.port = *now;
        if (renamed) {
            giveUniqueID(endpoint);
        }
        if (const auto device = devices_.find(now->address.client); device != devices_.end()) {
            device->second.name = marked(*now, now->clientName);
        }
        changed = true;
    }
    return changed;
}

bool EndpointList::addNew(const std::vector<PortDescription>& present) {
    bool changed = false;
    for (const PortDescription& port : present) {
        if (find(port.address, port.direction) != nullptr) {
            continue;
        }
        ListedEndpoint endpoint;
        endpoint.port = port;
        endpoint.handle = ++nextHandle_;
        endpoint.entity = port.isOfDevice ? entityOf(port) : 0;
        giveUniqueID(endpoint);
        endpoints_.push_back(std::move(endpoint));
        changed = true;
    }
    return changed;
}

void EndpointList::giveUniqueID(ListedEndpoint& endpoint) const {
    // The lowest number that none of its kind has: one that stays keeps its own.
    std::set<unsigned int> occurrences;
    std::set<std::int32_t> taken;
    for (const ListedEndpoint& other : endpoints_) {
        if (other.handle == endpoint.handle) {
            continue;
        }
        taken.insert(other.uniqueID);
        if (haveTheSameNames(other.port, endpoint.port)) {
            occurrences.insert(other.occurrence);
        }
    }
    endpoint.occurrence = 0;
    while (occurrences.count(endpoint.occurrence) != 0) {
        ++endpoint.occurrence;
    }
    endpoint.uniqueID =
        uniqueIDFor(endpoint.port.clientName, endpoint.port.portName, endpoint.port.direction,
                    endpoint.occurrence, [&](std::int32_t id) { return taken.count(id) != 0; });
}

MIDIEntityRef EndpointList::entityOf(const PortDescription& port) {
    const auto [device, isNew] = devices_.try_emplace(port.address.client);
    if (isNew) {
        device->second.handle = ++nextHandle_;
        device->second.entity = ++nextHandle_;
        device->second.name = marked(port, port.clientName);
        device->second.isBus = port.isBus;
    }
    return device->second.entity;
}

ListedEndpoint* EndpointList::find(const Address& address, Direction direction) {
    const auto found = std::find_if(endpoints_.begin(), endpoints_.end(), [&](const auto& e) {
        return e.port.address == address && e.port.direction == direction;
    });
    return found == endpoints_.end() ? nullptr : &*found;
}

const ListedEndpoint* EndpointList::find(MIDIEndpointRef handle) const {
    const auto found = std::find_if(endpoints_.begin(), endpoints_.end(),
                                    [&](const auto& e) { return e.handle == handle; });
    return found == endpoints_.end() ? nullptr : &*found;
}

const ListedDevice* EndpointList::findDevice(MIDIObjectRef deviceOrEntity) const {
    const auto found = std::find_if(devices_.begin(), devices_.end(), [&](const auto& entry) {
        return entry.second.handle == deviceOrEntity || entry.second.entity == deviceOrEntity;
    });
    return found == devices_.end() || deviceOrEntity == 0 ? nullptr : &found->second;
}

}  // namespace platform::alsa
