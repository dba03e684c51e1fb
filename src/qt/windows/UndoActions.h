#pragma once

#include <QAction>
#include <functional>
#include <string_view>

namespace qt::windows {

/// Undo and Redo of one window: entries for its menu, and keys that work without one. They say what
/// would be undone.
class UndoActions {
public:
    /// The window gets the keys. `undoable` has `canUndo`, `undoName`, `undo` and the like of redo.
    /// Both must outlive this.
    template <typename Undoable>
    UndoActions(QWidget& window, Undoable& undoable)
        : undo_(makeAction(window, [&undoable] { undoable.undo(); })),
          redo_(makeAction(window, [&undoable] { undoable.redo(); })),
          showNames_([this, &undoable] {
              showName(*undo_, undoCaption, undoable.canUndo(), undoable.undoName());
              showName(*redo_, redoCaption, undoable.canRedo(), undoable.redoName());
          }) {
        nameActions();
        refresh();
    }
    UndoActions(const UndoActions&) = delete;
    UndoActions& operator=(const UndoActions&) = delete;

    /// An action has ended: there may be other steps.
    void refresh() { showNames_(); }

    [[nodiscard]] QList<QAction*> actions() const { return {undo_, redo_}; }

private:
    static constexpr const char* undoCaption = "&Undo";
    static constexpr const char* redoCaption = "&Redo";

    static QAction* makeAction(QWidget& window, const std::function<void()>& act);
    static void showName(QAction& action, const char* caption, bool isThere, std::string_view step);
    void nameActions();

    QAction* undo_;  // the window's
    QAction* redo_;
    std::function<void()> showNames_;
};

}  // namespace qt::windows
