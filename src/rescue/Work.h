#pragma once

#include "config/layout.h"
#include "config/presetText.h"
#include "config/stores.h"

namespace rescue {

/// What there is to lose, as two presets: the configuration that is shown, and the person's own
/// assignments in the store behind it, which a preset of a DAW mode cannot hold.
struct Work {
    config::PresetBytes shown{};
    config::PresetBytes userDefined{};

    bool operator==(const Work&) const = default;
};

[[nodiscard]] Work workOf(const config::Image& sysData, const config::Stores& stores);

/// Puts the person's own assignments back into the store, every byte of it that is ever read.
void giveBackUserDefined(const Work& work, config::Stores& stores);

}  // namespace rescue
