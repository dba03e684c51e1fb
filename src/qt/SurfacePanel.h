#pragma once

#include <QGridLayout>
#include <QWidget>
#include <array>

#include "config/layout.h"
#include "editor/EditorState.h"
#include "editor/MainWindow.h"

namespace qt {

/// The controller as it is built: eight strips and the master fader on the left, keys and pads on
/// the right, a button for each control.
class SurfacePanel final : public QWidget {
public:
    SurfacePanel(editor::MainWindow& window, const editor::EditorState& state,
                 QWidget* parent = nullptr);

    /// Shows afresh what each control sends; to be called when an action has ended.
    void refresh();

private:
    QWidget* makeStrips();
    QWidget* makeKeysAndPads();
    void addControl(QGridLayout& grid, int tag, int row, int column);
    void addLayerButtons(QGridLayout& grid, int row, std::array<toolkit::Button, 4>& buttons,
                         const QString& caption, const QString& outlet);

    editor::MainWindow& window_;
    const editor::EditorState& state_;
    std::array<QWidget*, config::buttonCount> faces_{};
};

}  // namespace qt
