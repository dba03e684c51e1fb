#pragma once

#include <cstddef>
#include <optional>

#include "platform/alsa/FillLevel.h"

namespace platform::alsa {

/// The level of the pool in which the kernel keeps the events that a program has not read yet, in
/// cells. `sequencer` is the descriptor of any client; the library asks about one's own pool only.
/// Nothing when there is no such program.
[[nodiscard]] std::optional<FillLevel> levelOfPool(int sequencer, int client);

/// Cells of a pool that a message takes.
[[nodiscard]] std::size_t cellsFor(std::size_t bytes);

}  // namespace platform::alsa
