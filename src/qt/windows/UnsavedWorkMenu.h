#pragma once

#include <QAction>
#include <QMenu>
#include <array>

#include "editor/UnsavedWork.h"

namespace qt::windows {

/// What can be done with unsaved work that is left on disk, in a menu: a command where there is one
/// copy, a list of them where there are several. It is grey where there is none.
class UnsavedWorkMenu {
public:
    /// Stands before another entry. Both, and the unsaved work, must outlive this.
    UnsavedWorkMenu(QMenu& menu, QAction& before, editor::UnsavedWork& unsavedWork);
    UnsavedWorkMenu(const UnsavedWorkMenu&) = delete;
    UnsavedWorkMenu& operator=(const UnsavedWorkMenu&) = delete;

private:
    using Act = void (editor::UnsavedWork::*)(const rescue::Leftover& offer);

    struct Entry {
        QAction* command = nullptr;  // the menu's
        QMenu* list = nullptr;
        Act act = nullptr;
    };

    [[nodiscard]] Entry makeEntry(QMenu& menu, QAction& before, const char* name,
                                  const char* caption, Act act);
    void refresh();
    void refreshList(const Entry& entry);
    void perform(Act act, const rescue::Leftover& offer);

    editor::UnsavedWork& unsavedWork_;
    std::array<Entry, 2> entries_;
};

}  // namespace qt::windows
