#pragma once

// What assistive technology is told of the drawn controller.

namespace qt {

/// From now on faces of the controller are told as choices of one group: which one is selected, and
/// that pressing one selects it. To be called before the first of them is made; more calls do
/// nothing.
void describeFaces();

}  // namespace qt
