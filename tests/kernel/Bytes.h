#pragma once

#include <cstdint>
#include <vector>

namespace kernel {

/// MIDI as it is on the wire.
using Bytes = std::vector<std::uint8_t>;

}  // namespace kernel
