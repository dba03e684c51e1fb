#pragma once

// From the state to every widget model of the main window, as a whole. What an action refreshes on
// its way is the action's own business; whatever puts another state in place (undo, redo, a
// configuration taken over) goes through here.

#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/Shown.h"

namespace editor {

/// What the main window shows of a state: what the actions that lead to it leave in the widgets.
/// `before` is what it showed until now: some things stay as they are (blanks behind a list, the
/// lights of the pad layers, the title).
[[nodiscard]] Shown shownOf(const EditorState& state, const Shown& before);

/// Has every widget model show the state. Twice is once; the state is not touched, and no handler
/// runs.
void showState(const EditorState& state, MainWindow& window);

/// The position in `combo_trig` for a mode byte: momentary or toggle, or in User Defined mode the
/// "All" form of it while `layerOfFlag` has an "All" choice in force.
[[nodiscard]] int triggerIndex(const EditorState& state, int layerOfFlag, int control,
                               int modeByte);

}  // namespace editor
