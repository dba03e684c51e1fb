#pragma once

#include <array>

#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "qt/surface/FacePanel.h"

namespace qt::surface {

/// The controller, drawn: its case, and on it a face for each control and layer button, which
/// shows what the control sends.
///
/// Keys, while one of the faces has the focus (Tab leads to the selected one, and out again):
///   arrows             to the next control that way, which is selected; layer buttons on the way
///                      only get the focus
///   Home, End          to the ends of a row
///   Enter, Space       click
///   1 to 4             mode layers, as their buttons would
///   Alt + 1 to 4       pad layers, as their buttons would
/// Digits are taken with Shift too, which some keyboards need for them.
class SurfacePanel final : public FacePanel {
public:
    /// Window and state must outlive it.
    SurfacePanel(editor::MainWindow& window, const editor::EditorState& state,
                 QWidget* parent = nullptr);

    /// Shows afresh what each control sends; to be called when an action has ended. Only faces that
    /// changed are painted. Where a control's face has the focus, that goes on to the selected
    /// one.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addControls(editor::MainWindow& window);
    void addLayers(std::array<toolkit::Button, 4>& buttons, int firstPlace, const QString& outlet,
                   const QString& name);
    [[nodiscard]] bool pressLayer(const QKeyEvent& event);

    const editor::EditorState& state_;
};

}  // namespace qt::surface
