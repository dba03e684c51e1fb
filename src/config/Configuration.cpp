#include "config/Configuration.h"

#include <algorithm>

#include "config/modes.h"

namespace config {

Image userDefinedImage(const Configuration& configuration) {
    Image image = configuration.sysData;
    const bool isParked = trailer(image, 0, dawModeOffset) != userDefinedMode;
    if (isParked && configuration.stores.userDefinedHoldsData()) {
        restoreUserDefined(image, configuration.stores);
    }
    return image;
}

bool sameChannelsAndNumbers(const Image& one, const Image& other) {
    for (int layer = 0; layer < layerCount; ++layer) {
        const auto* first = one.data() + at(layer, channelOffset);
        const auto* end = one.data() + at(layer, modeOffset);  // the numbers end where modes begin
        if (!std::equal(first, end, other.data() + at(layer, channelOffset))) {
            return false;
        }
    }
    return true;
}

}  // namespace config
