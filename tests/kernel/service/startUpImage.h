#pragma once

#include "config/buildImageAndStores.h"
#include "config/sysex.h"
#include "kernel/Bytes.h"

namespace kernel {

/// What the editor holds after its start: four messages of 254 bytes.
inline Bytes startUpImage() {
    config::Image sysData{};
    config::Stores stores;
    config::buildImageAndStores(sysData, stores);
    Bytes messages;
    for (int layer = 0; layer < config::layerCount; ++layer) {
        const auto block = config::layerBlock(sysData, layer);
        messages.insert(messages.end(), block.begin(), block.end());
    }
    return messages;
}

}  // namespace kernel
