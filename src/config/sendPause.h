#pragma once

#include <chrono>

namespace config {

/// The pause after each of the four messages of a Send, the last one included: the only pacing
/// between them.
inline constexpr std::chrono::duration<double> pauseAfterBlock{0.002};

}  // namespace config
