#pragma once

#include "midi/keyedArchive.h"

namespace midi {

class ZQMIDIManager;

/// The classes of this room that an archive can hold. Real endpoints come back as the manager's own
/// objects, published ones as fresh endpoints.
[[nodiscard]] ArchivedClasses archivedClasses(ZQMIDIManager& manager);

}  // namespace midi
