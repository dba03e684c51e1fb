#pragma once

// What assistive technology is told of the boxes' lists.

namespace qt {

/// From now on the items of a box's list can be chosen by assistive technology: each has an action
/// for it, and tells whether it is the chosen one, whether the list is open or not. To be called
/// before the first list is made; more calls do nothing.
void describeChoices();

}  // namespace qt
