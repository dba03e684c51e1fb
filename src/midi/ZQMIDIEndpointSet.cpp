#include "midi/ZQMIDIEndpointSet.h"

#include <typeinfo>

namespace midi {

ZQMIDIEndpoint* ZQMIDIEndpointSet::endpointWithDescriptor(
    const ZQMIDIEndpointDescriptor& descriptor) const {
    ZQMIDIEndpoint* endpoint = nullptr;
    for (std::size_t i = 0; (endpoint = endpointAt_(i)) != nullptr; ++i) {
        if (endpoint->uniqueID() == descriptor.uniqueID()) {
            return endpoint;
        }
    }
    for (std::size_t i = 0; (endpoint = endpointAt_(i)) != nullptr; ++i) {
        if (endpoint->name() && endpoint->name() == descriptor.name()) {
            return endpoint;
        }
    }
    return nullptr;
}

std::shared_ptr<const archive::Archivable> ZQMIDIEndpointSet::archiver(
    archive::KeyedArchiver& /*archiver*/, std::shared_ptr<const archive::Archivable> object) {
    const ZQMIDIEndpoint* endpoint = nullptr;
    for (std::size_t i = 0; (endpoint = endpointAt_(i)) != nullptr; ++i) {
        if (static_cast<const archive::Archivable*>(endpoint) == object.get()) {
            return std::make_shared<ZQMIDIEndpointDescriptor>(endpoint->descriptor());
        }
    }
    return object;
}

std::shared_ptr<archive::Archivable> ZQMIDIEndpointSet::unarchiver(
    archive::KeyedUnarchiver& /*unarchiver*/, std::shared_ptr<archive::Archivable> object) {
    if (object == nullptr) {
        return object;
    }
    const archive::Archivable& decoded = *object;
    if (typeid(decoded) != typeid(ZQMIDIEndpointDescriptor)) {
        return object;
    }
    ZQMIDIEndpoint* const endpoint =
        endpointWithDescriptor(static_cast<const ZQMIDIEndpointDescriptor&>(decoded));
    return endpoint == nullptr ? nullptr : archive::borrowed<archive::Archivable>(*endpoint);
}

}  // namespace midi
