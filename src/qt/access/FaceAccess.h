#pragma once

// What assistive technology is told of the drawn controller, of pads and of lamps.

#include <functional>

class QAbstractButton;
class QAccessibleInterface;

namespace qt::access {

/// For a face of the controller or a pad: a choice of a group, whether it is the selected one, and
/// that pressing it selects it.
[[nodiscard]] QAccessibleInterface* newFaceAccess(QAbstractButton& face,
                                                  std::function<bool()> isSelected);

/// For a lamp: something that is lit or not and cannot be pressed.
[[nodiscard]] QAccessibleInterface* newLampAccess(QAbstractButton& lamp);

}  // namespace qt::access
