#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "midi/ZQMIDIEndpoint.h"
#include "midi/archive/keyedArchive.h"

namespace midi {

/// The endpoints that descriptors can stand for. As the delegate of an archiver it writes a
/// descriptor in place of each of its endpoints, as that of an unarchiver it puts the endpoint
/// back.
class ZQMIDIEndpointSet final : public archive::KeyedArchiverDelegate,
                                public archive::KeyedUnarchiverDelegate {
public:
    /// Over the list itself, not a snapshot: it must outlive the set. The list holds pointers to
    /// endpoints, plain or owning.
    template <typename EndpointPointer>
    [[nodiscard]] static ZQMIDIEndpointSet endpointSetWithArray(
        const std::vector<EndpointPointer>& list) {
        return ZQMIDIEndpointSet([&list](std::size_t index) -> ZQMIDIEndpoint* {
            return index < list.size() ? std::to_address(list[index]) : nullptr;
        });
    }

    /// The first endpoint with the descriptor's unique ID; only if there is none, the first with
    /// exactly its name; else none.
    [[nodiscard]] ZQMIDIEndpoint* endpointWithDescriptor(
        const ZQMIDIEndpointDescriptor& descriptor) const;

    [[nodiscard]] std::shared_ptr<const archive::Archivable> archiver(
        archive::KeyedArchiver& archiver,
        std::shared_ptr<const archive::Archivable> object) override;
    /// A descriptor that designates no endpoint becomes none.
    [[nodiscard]] std::shared_ptr<archive::Archivable> unarchiver(
        archive::KeyedUnarchiver& unarchiver, std::shared_ptr<archive::Archivable> object) override;

private:
    /// The endpoint at an index, none behind the end.
    using EndpointAt = std::function<ZQMIDIEndpoint*(std::size_t index)>;

    explicit ZQMIDIEndpointSet(EndpointAt endpointAt) : endpointAt_(std::move(endpointAt)) {}

    EndpointAt endpointAt_;
};

}  // namespace midi
