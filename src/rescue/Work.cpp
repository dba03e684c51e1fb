#include "rescue/Work.h"

#include <algorithm>

#include "config/modes.h"

namespace rescue {

using config::at;
using config::layerCount;
using config::userBlockSize;

Work workOf(const config::Image& sysData, const config::Stores& stores) {
    Work work{config::presetBytes(sysData), {}};
    // Behind what the store has of a layer comes what holds in every mode.
    work.userDefined = work.shown;
    for (int layer = 0; layer < layerCount; ++layer) {
        std::copy_n(stores.SysBuf_usrdef.begin() + layer * std::ptrdiff_t{userBlockSize},
                    userBlockSize, work.userDefined.begin() + at(layer, 0));
        work.userDefined[at(layer, config::dawModeOffset)] = config::userDefinedMode;
    }
    return work;
}

void giveBackUserDefined(const Work& work, config::Stores& stores) {
    for (int layer = 0; layer < layerCount; ++layer) {
        std::copy_n(work.userDefined.begin() + at(layer, 0), userBlockSize,
                    stores.SysBuf_usrdef.begin() + layer * std::ptrdiff_t{userBlockSize});
    }
}

}  // namespace rescue
