#pragma once

#include <memory>
#include <type_traits>
#include <vector>

namespace midi {

/// The elements of a list of pointers (plain or owning) whose `selector` says true, in order.
template <typename Pointer, typename Class>
[[nodiscard]] auto filteredArrayUsingSelector(const std::vector<Pointer>& list,
                                              bool (Class::*selector)() const) {
    using Element = typename std::pointer_traits<Pointer>::element_type;
    std::vector<Element*> filtered;
    for (const Pointer& entry : list) {
        Element* const element = std::to_address(entry);
        if ((element->*selector)()) {
            filtered.push_back(element);
        }
    }
    return filtered;
}

}  // namespace midi
