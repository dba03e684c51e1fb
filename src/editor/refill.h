#pragma once

#include "texts/List.h"
#include "toolkit/ComboBox.h"

namespace editor {

/// Gives a box another list; nothing is selected then.
inline void refill(toolkit::ComboBox& box, texts::List list) {
    box.removeAllItems();
    box.addItemsWithObjectValues(list);
}

}  // namespace editor
