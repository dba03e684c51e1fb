#pragma once

#include <cstddef>

namespace config {

/// Whether a mode change exchanges the byte at `offset` of a layer's block.
inline bool isSwapped(int layer, std::size_t offset) {
    if (offset < 7 || offset >= 246) {
        return false;  // the frame; the mode of control 79; the trailer
    }
    if (layer == 0) {
        return offset != 80 && offset != 160;  // channel and number of control 73
    }
    const bool channelsFromMasterFader = offset >= 71 && offset <= 80;
    const bool numbersFromMasterFader = offset >= 151 && offset <= 160;
    return !channelsFromMasterFader && !numbersFromMasterFader;
}

}  // namespace config
