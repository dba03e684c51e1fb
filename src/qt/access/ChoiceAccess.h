#pragma once

// What assistive technology is told of the boxes' lists.

#include <functional>

class QAccessibleInterface;
class QComboBox;
class QListView;

namespace qt::access {

/// For the list of a box: each of its items has an action by which it can be chosen, and tells
/// whether it is the chosen one, whether the list is open or not. `pick` chooses the item of a row.
[[nodiscard]] QAccessibleInterface* newChoiceListAccess(QListView& list, QComboBox& box,
                                                        std::function<void(int row)> pick);

}  // namespace qt::access
