#pragma once

#include <cstdint>
#include <span>

#include "config/layout.h"
#include "sending/Consignment.h"
#include "sending/Way.h"

namespace sending {

/// Sends the whole configuration, a message for each layer, to the output that is chosen. To none,
/// or one that is offline, it sends nothing, and makes no pause.
[[nodiscard]] Consignment send(const config::Image& image, const Way& way);

/// Sends one message of at most 256 bytes, likewise; the output is kept open during the pause.
[[nodiscard]] Consignment sendMessage(std::span<const std::uint8_t> message, Seconds pause,
                                      const Way& way);

/// Layers that so many bytes of a Send are, counted when they are whole.
[[nodiscard]] constexpr std::uint64_t layersIn(std::uint64_t bytes) {
    return bytes / config::blockSize;
}

}  // namespace sending
