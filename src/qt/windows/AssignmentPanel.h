#pragma once

#include <QWidget>

#include "editor/EditorState.h"
#include "editor/MainWindow.h"

class QLabel;

namespace qt::windows {

/// Which control is selected and in which layer, what it sends, and the boxes that change it.
class AssignmentPanel final : public QWidget {
public:
    AssignmentPanel(editor::MainWindow& window, const editor::EditorState& state,
                    QWidget* parent = nullptr);

    /// Names the selection afresh; to be called when an action has ended.
    void refresh();

private:
    void addHeading();
    void addBoxes(editor::MainWindow& window);

    const editor::EditorState& state_;
    QLabel* control_ = nullptr;
    QLabel* layer_ = nullptr;
    QLabel* sends_ = nullptr;
    QLabel* hint_ = nullptr;
};

}  // namespace qt::windows
