#pragma once

// The DAW modes: values of the image's mode byte and positions in the list of modes. Each of the
// hosts' modes sends the same assignments; what differs is what the hosts make of them.

namespace config {

inline constexpr int userDefinedMode = 0;  ///< the owner's own assignments
inline constexpr int nuendoMode = 1;
inline constexpr int samplitudeMode = 2;
inline constexpr int liveMode = 3;
inline constexpr int logicMode = 4;
inline constexpr int huiMode = 5;

}  // namespace config
