#pragma once

#include "midi/archive/keyedArchive.h"

namespace midi {

class ZQMIDIManager;

/// The classes of this room that an archive can hold. Real endpoints come back as the manager's own
/// objects, published ones as fresh endpoints.
[[nodiscard]] archive::ArchivedClasses archivedClasses(ZQMIDIManager& manager);

}  // namespace midi
