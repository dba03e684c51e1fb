#pragma once

#include <QString>

#include "qt/ControlButton.h"

namespace qt {

/// How a control of the controller looks in the window, and what it is called.
struct ControlFace {
    ControlButton::Shape shape;
    QString caption;
    QString name;  ///< in full, for tool tips and screen readers
};

/// By the tag of its button, 0 to 73.
[[nodiscard]] ControlFace faceOf(int tag);

/// "Pad 1" to "Pad 9", in reading order of the three rows.
[[nodiscard]] QString padCaption(int position);

}  // namespace qt
