#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/MidiService.h"

namespace midi {

// Finding the service's endpoints again. The service's lists are read at every call, nothing is
// kept. 0 is no endpoint. Main thread only.

/// The composed name: the device's name in front of the endpoint's own, unless that begins with it
/// already (upper and lower case being equal). None if the endpoint has neither.
[[nodiscard]] std::optional<std::string> ZQMIDIGetEndpointName(platform::MidiService& service,
                                                               platform::MIDIEndpointRef endpoint);

[[nodiscard]] bool ZQMIDIDoesSourceStillExist(platform::MidiService& service,
                                              platform::MIDIEndpointRef source);
[[nodiscard]] platform::MIDIEndpointRef ZQMIDIGetSourceByUniqueID(platform::MidiService& service,
                                                                  std::int32_t uniqueID);
/// By exactly that composed name.
[[nodiscard]] platform::MIDIEndpointRef ZQMIDIGetSourceByName(platform::MidiService& service,
                                                              std::string_view name);

[[nodiscard]] bool ZQMIDIDoesDestinationStillExist(platform::MidiService& service,
                                                   platform::MIDIEndpointRef destination);
[[nodiscard]] platform::MIDIEndpointRef ZQMIDIGetDestinationByUniqueID(
    platform::MidiService& service, std::int32_t uniqueID);
[[nodiscard]] platform::MIDIEndpointRef ZQMIDIGetDestinationByName(platform::MidiService& service,
                                                                   std::string_view name);

}  // namespace midi
