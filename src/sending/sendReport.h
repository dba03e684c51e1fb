#pragma once

#include <string>

#include "sending/Consignment.h"

namespace sending {

/// What is known of a Send, in words: "Sent 4 layers to Tormelk MIDI 1" only when all is known to
/// have left.
[[nodiscard]] std::string reportSend(const Receipt& receipt);

}  // namespace sending
