// What became of what was sent.

#include <utility>
#include <vector>

#include "platform/alsa/AlsaMidiService.h"

namespace platform::alsa {

void AlsaMidiService::beginDelivery(MIDIEndpointRef destination) {
    const Lock lock(mutex_);
    readAnnouncementsAhead(lock);
    const std::optional<PortDescription> port = portOf(lock, destination);
    const bool isThere = port && port->direction == Direction::Destination && !hasGone(lock, *port);
    output_.beginDelivery({destination, port.value_or(PortDescription())}, !isThere);
}

Delivery AlsaMidiService::delivery(MIDIEndpointRef destination) {
    return output_.delivery(destination);
}

void AlsaMidiService::watchDelivery(MIDIEndpointRef destination,
                                    std::function<void(const Delivery&)> whenSettled) {
    const Lock lock(mutex_);
    if (whenSettled) {
        deliveryWatches_.insert_or_assign(destination, std::move(whenSettled));
        wakeUp();  // it may be settled already
    } else {
        deliveryWatches_.erase(destination);
    }
}

void AlsaMidiService::abandonDelivery(MIDIEndpointRef destination) {
    output_.abandonDelivery(destination);
}

void AlsaMidiService::tellSettled(Lock& lock) {
    std::vector<MIDIEndpointRef> watched;
    watched.reserve(deliveryWatches_.size());
    for (const auto& [destination, whenSettled] : deliveryWatches_) {
        watched.push_back(destination);
    }
    for (const MIDIEndpointRef destination : watched) {
        // Looked up anew: what was called may have taken it back.
        const auto found = deliveryWatches_.find(destination);
        const Delivery delivery = output_.delivery(destination);
        if (found == deliveryWatches_.end() || !delivery.isSettled) {
            continue;
        }
        const auto whenSettled = std::move(found->second);
        deliveryWatches_.erase(found);
        lock.unlock();
        whenSettled(delivery);
        lock.lock();
    }
}

}  // namespace platform::alsa
