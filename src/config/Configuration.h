#pragma once

#include "config/layout.h"
#include "config/stores.h"

namespace config {

/// Everything a person configures, as a value: the image that the controller receives, and the two
/// stores behind it. It can be copied, compared and put in place as a whole.
struct Configuration {
    Image sysData{};
    Stores stores;

    bool operator==(const Configuration&) const = default;
};

/// The image as User Defined mode shows it. While a DAW mode is shown that is what a return to User
/// Defined mode would bring back.
[[nodiscard]] Image userDefinedImage(const Configuration& configuration);

/// Whether two images have the same channels and the same numbers, of every control in every layer.
[[nodiscard]] bool sameChannelsAndNumbers(const Image& one, const Image& other);

}  // namespace config
