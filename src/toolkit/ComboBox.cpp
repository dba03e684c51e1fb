#include "toolkit/ComboBox.h"

namespace toolkit {

void ComboBox::removeAllItems() {
    shared_ = {};
    added_.clear();
    selected_ = -1;
    tell(Change::Items);
}

void ComboBox::addItemsWithObjectValues(texts::List items) {
    if (numberOfItems() == 0) {
        shared_ = items;
    } else {
        for (const std::string_view item : items) {
            append(item);
        }
    }
    tell(Change::Items);
}

void ComboBox::addItemWithObjectValue(std::string_view item) {
    append(item);
    tell(Change::Items);
}

int ComboBox::numberOfItems() const {
    return static_cast<int>(shared_.size() + added_.size());
}

std::optional<std::string_view> ComboBox::itemObjectValueAtIndex(int index) const {
    if (index < 0 || index >= numberOfItems()) {
        return std::nullopt;
    }
    const auto position = static_cast<std::size_t>(index);
    if (position < shared_.size()) {
        return shared_[position];
    }
    const Item& item = added_[position - shared_.size()];
    return item.blank ? blankEntry : std::string_view(item.text);
}

void ComboBox::selectItemAtIndex(int index) {
    const int selected = index >= 0 && index < numberOfItems() ? index : -1;
    if (selected == selected_) {
        return;
    }
    selected_ = selected;
    tell(Change::Selection);
}

void ComboBox::setEnabled(bool enabled) {
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    tell(Change::Enabled);
}

void ComboBox::choose(int index) {
    if (!enabled_ || index < 0 || index >= numberOfItems() || index == selected_) {
        return;
    }
    selectItemAtIndex(index);
    if (onChoice) {
        onChoice();
    }
}

void ComboBox::append(std::string_view item) {
    if (isBlankEntry(item)) {
        added_.push_back({true, {}});
    } else {
        added_.push_back({false, std::string(item)});
    }
}

void ComboBox::tell(Change change) const {
    if (onChange) {
        onChange(change);
    }
}

}  // namespace toolkit
