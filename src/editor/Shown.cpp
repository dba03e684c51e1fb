#include "editor/Shown.h"

namespace editor {

ShownButton shownBy(const toolkit::Button& button) {
    return {button.state(), button.isEnabled()};
}

ShownBox shownBy(const toolkit::ComboBox& box) {
    const texts::List list = box.firstList();
    return {list, box.numberOfItems() - static_cast<int>(list.size()), box.indexOfSelectedItem(),
            box.isEnabled()};
}

ShortText shownBy(const toolkit::TextField& field) {
    return ShortText(field.stringValue());
}

void show(const ShownButton& shown, toolkit::Button& button) {
    button.setState(shown.state);
    button.setEnabled(shown.isEnabled);
}

void show(const ShownBox& shown, toolkit::ComboBox& box) {
    const ShownBox now = shownBy(box);
    const bool sameList = now.list.data() == shown.list.data() &&
                          now.list.size() == shown.list.size() && now.blanks <= shown.blanks;
    if (!sameList) {
        box.removeAllItems();
        box.addItemsWithObjectValues(shown.list);
    }
    for (int blanks = shownBy(box).blanks; blanks < shown.blanks; ++blanks) {
        box.addItemWithObjectValue(toolkit::blankEntry);
    }
    box.selectItemAtIndex(shown.selected);
    box.setEnabled(shown.isEnabled);
}

void show(const ShortText& shown, toolkit::TextField& field) {
    field.setStringValue(shown.view());
}

Shown shownBy(const MainWindow& window) {
    Shown shown;
    shown.title = ShortText(window.window.title());
    forEachWidget(window, shown, [](const auto& widget, auto& part) { part = shownBy(widget); });
    return shown;
}

void show(const Shown& shown, MainWindow& window) {
    window.window.setTitle(shown.title.view());
    forEachWidget(window, shown, [](auto& widget, const auto& part) { show(part, widget); });
}

}  // namespace editor
