// Undo and Redo, and a configuration that takes the place of the whole one.

#include "editor/mainController.h"

namespace editor {

void mainController::undo() {
    if (!canUndo()) {
        return;
    }
    const std::string name(document_.undoName());
    document_.undo();
    report("Undone: " + name);
    tellView();
}

void mainController::redo() {
    if (!canRedo()) {
        return;
    }
    const std::string name(document_.redoName());
    document_.redo();
    report("Done again: " + name);
    tellView();
}

void mainController::takeOver(const config::Configuration& configuration, const std::string& name,
                              int broughtBack) {
    document_.takeOver(configuration, name, broughtBack);
    report(name);
    tellView();
}

}  // namespace editor
