#pragma once

// Single bytes of the live image by layer and control: the write path of the pad editor. They
// touch nothing but the image.

#include "config/control.h"
#include "config/layout.h"

namespace editor::padWriters {

/// Note of a pad.
inline void setPaCc_domal(config::Image& sysData, int layer, int control, int value) {
    config::setNumber(sysData, layer, control, value);
}

/// Channel of a pad, 0 to 15.
inline void setPaChan_domal(config::Image& sysData, int layer, int control, int value) {
    config::setChannel(sysData, layer, control, value);
}

/// Pad interval of a layer.
inline void setPaIntrvl_domal(config::Image& sysData, int layer, int value) {
    config::setTrailer(sysData, layer, config::intervalOffset, value);
}

/// Velocity curve of a layer, in a form of its own: below 4 as it is, 10 as 127, any other value
/// times 16 with bit 2 set. The pad editor's copy-back replaces it by the plain value.
inline void setPaCurv_domal(config::Image& sysData, int layer, int value) {
    int stored = ((value << 4) & 0xFF) | 4;
    if (value < 4) {
        stored = value;
    } else if (value == 10) {
        stored = 127;
    }
    config::setTrailer(sysData, layer, config::curveOffset, stored);
}

}  // namespace editor::padWriters
