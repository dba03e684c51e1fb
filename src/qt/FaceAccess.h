#pragma once

// What assistive technology is told of the drawn controller.

class QObject;

namespace qt {

/// From now on faces of the controller are told as choices of one group: which one is selected, and
/// that pressing one selects it. To be called before the first of them is made; more calls do
/// nothing.
void describeFaces();

/// To be called by a face once it is made: what was kept about the plain button that it was until
/// then is dropped.
void describeAfresh(QObject& face);

}  // namespace qt
