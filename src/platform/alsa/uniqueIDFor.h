#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/alsa/enumeration.h"

namespace platform::alsa {

/// The unique ID of an endpoint: the same for the same device whichever USB port it is plugged into
/// and whenever the program is started, never 0. Made from what is always the same: the names of
/// the client and the port, the direction, and which one it is among those that have all these in
/// common (0 for the first).
///
/// `isTaken` says which IDs others have; of two that would be equal by chance, the later one gets
/// the next free number.
///
/// It must fail where names and order say nothing: of two devices of one model, the one that is
/// plugged in (or, at the start, listed) first is the first, whichever it was the last time, for
/// they tell the system no serial number here. And a device or port that gets another name gets
/// another ID.
[[nodiscard]] std::int32_t uniqueIDFor(std::string_view clientName, std::string_view portName,
                                       Direction direction, unsigned int occurrence,
                                       const std::function<bool(std::int32_t)>& isTaken);

}  // namespace platform::alsa
