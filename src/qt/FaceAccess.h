#pragma once

// What assistive technology is told of the drawn controller, of pads and of lamps.

class QObject;

namespace qt {

/// From now on faces of the controller are told as choices of one group: which one is selected, and
/// that pressing one selects it; pads likewise, and lamps as what cannot be pressed. To be called
/// before the first of them is made; more calls do nothing.
void describeFaces();

/// To be called by a widget with a description of its own once it is made: what was kept about the
/// plain button or list that it was until then is dropped.
void describeAfresh(QObject& widget);

}  // namespace qt
