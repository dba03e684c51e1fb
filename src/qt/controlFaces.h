#pragma once

#include <QString>

namespace qt {

/// "Pad 1" to "Pad 9", in reading order of the three rows.
[[nodiscard]] QString padCaption(int position);

}  // namespace qt
