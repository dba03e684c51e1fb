#pragma once

#include <cstdint>

#include "platform/MidiService.h"

namespace midi {

/// One of the two lists of endpoints that the service keeps.
struct EndpointDirection {
    std::uint32_t (platform::MidiService::*count)();
    platform::MIDIEndpointRef (platform::MidiService::*at)(std::uint32_t index);
};

inline constexpr EndpointDirection sources{&platform::MidiService::MIDIGetNumberOfSources,
                                           &platform::MidiService::MIDIGetSource};
inline constexpr EndpointDirection destinations{&platform::MidiService::MIDIGetNumberOfDestinations,
                                                &platform::MidiService::MIDIGetDestination};

/// The first endpoint, in index order, for which `matches` is true; 0 if there is none. One that
/// went while it was asked for (0 at its index) matches nothing.
template <typename Matches>
[[nodiscard]] platform::MIDIEndpointRef firstEndpoint(platform::MidiService& service,
                                                      const EndpointDirection& direction,
                                                      Matches matches) {
    const std::uint32_t count = (service.*direction.count)();
    for (std::uint32_t index = 0; index < count; ++index) {
        const platform::MIDIEndpointRef endpoint = (service.*direction.at)(index);
        if (endpoint != 0 && matches(endpoint)) {
            return endpoint;
        }
    }
    return 0;
}

}  // namespace midi
