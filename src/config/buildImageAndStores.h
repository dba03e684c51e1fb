#pragma once

#include "config/layout.h"
#include "config/stores.h"

namespace config {

/// Builds the image and both stores from the factory tables: DAW mode 1 with factory assignments,
/// the lock set, and a user-defined store whose faders send control change instead of pitch bend.
void buildImageAndStores(Image& sysData, Stores& stores);

}  // namespace config
