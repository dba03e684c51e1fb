#pragma once

#include <cstdint>
#include <string_view>

#include "platform/MidiService.h"

namespace midi {

class ZQMIDIProcess;

// What the endpoints that this process publishes need to be told from all others.

/// An integer property of every endpoint that a process publishes through this layer: its ID.
inline constexpr std::string_view ZQMIDIOwnerPID = "ZQMIDIOwnerPID";

/// Whether this process published the endpoint.
[[nodiscard]] bool ZQMIDIIsEndpointLocalVirtual(const ZQMIDIProcess& process,
                                                platform::MIDIEndpointRef endpoint);

/// Whether a source or destination of the system has the unique ID.
[[nodiscard]] bool ZQMIDIIsUniqueIDInUse(platform::MidiService& service, std::int32_t uniqueID);

/// A unique ID that nothing has. It is never handed out again in this run.
[[nodiscard]] std::int32_t ZQMIDIAllocateUniqueID(ZQMIDIProcess& process);

/// Whether a source or destination of the system has the composed name.
[[nodiscard]] bool ZQMIDIIsEndpointNameTaken(platform::MidiService& service, std::string_view name);

}  // namespace midi
