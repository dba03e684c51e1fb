#pragma once

// Widget models: what a person sees and does, without drawing. The windows in qt/ show these
// objects and pass a person's clicks and choices to them; the tests do the same, so that both use
// the very objects the product uses. Nothing here knows what an action means.

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "texts/List.h"

namespace toolkit {

namespace detail {
inline constexpr char blankEntryStorage = '\0';
}

/// The one entry that means "no value". It is known by its identity, not by being empty: an empty
/// text from elsewhere is an ordinary entry.
inline constexpr std::string_view blankEntry{&detail::blankEntryStorage,
                                             &detail::blankEntryStorage};

[[nodiscard]] constexpr bool isBlankEntry(std::string_view item) {
    return item.data() == blankEntry.data();
}

/// A drop-down list: items, at most one selected, enabled or not.
///
/// Only a person's choice (`choose`) runs the handler; a selection made by the program does not.
class ComboBox {
public:
    enum class Change { Items, Selection, Enabled };

    ComboBox() = default;
    ComboBox(const ComboBox&) = delete;
    ComboBox& operator=(const ComboBox&) = delete;

    /// Empties the list; nothing is selected afterwards.
    void removeAllItems();

    /// Appends a whole list. Into an empty box the list itself is taken, not a copy.
    void addItemsWithObjectValues(texts::List items);

    /// Appends one item. `blankEntry` stays the blank entry; any other text is copied.
    void addItemWithObjectValue(std::string_view item);

    [[nodiscard]] int numberOfItems() const;

    /// The list that the empty box was given; what was added later stands behind it.
    [[nodiscard]] texts::List firstList() const { return shared_; }

    /// The item at `index`; none outside the list. The view is valid until the items change.
    [[nodiscard]] std::optional<std::string_view> itemObjectValueAtIndex(int index) const;

    /// Selects the item at `index`; outside the list nothing is selected.
    void selectItemAtIndex(int index);

    /// The selected position, or -1.
    [[nodiscard]] int indexOfSelectedItem() const { return selected_; }

    void setEnabled(bool enabled);
    [[nodiscard]] bool isEnabled() const { return enabled_; }

    /// A person picks the item at `index`: it is selected, then the handler runs. Nothing happens
    /// where the box is disabled, the item is selected already or there is no such item.
    void choose(int index);

    /// Runs after a person's choice.
    std::function<void()> onChoice;

    /// Tells the one view of this box what to show afresh.
    std::function<void(Change)> onChange;

private:
    struct Item {
        bool blank = false;
        std::string text;
    };

    void append(std::string_view item);
    void tell(Change change) const;

    texts::List shared_;       // the list that was added first, by reference
    std::vector<Item> added_;  // what came after it
    int selected_ = -1;
    bool enabled_ = true;
};

}  // namespace toolkit
