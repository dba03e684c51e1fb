#pragma once

// Why there is no MIDI on this computer and what can be done about it, in words.

#include <string>

#include "platform/ServiceState.h"

namespace devices {

/// What stands in the way, in one sentence. Empty where nothing does.
[[nodiscard]] std::string whyNoMidi(const platform::ServiceState& midi);

/// What a person can do about it; a command stands in the last line. Empty where nothing is known.
[[nodiscard]] std::string remedyForNoMidi(const platform::ServiceState& midi);

}  // namespace devices
