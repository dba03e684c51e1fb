#pragma once

#include <string>

#include "sending/Consignment.h"

namespace firmware {

// What is known of an upload, for a person, and no more than that.

/// While it goes on: "39 %, block 31 of 79, 56 s left".
[[nodiscard]] std::string progressOf(const sending::Receipt& upload);

/// When it is over: empty where all of it has left this computer and nothing is to be said.
[[nodiscard]] std::string outcomeOf(const sending::Receipt& upload);

/// What kept something from leaving this computer: "the controller went away".
[[nodiscard]] std::string reasonOf(const sending::Receipt& receipt);

}  // namespace firmware
