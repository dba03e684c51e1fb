#pragma once

#include "editor/pad.h"
#include "qt/surface/FacePanel.h"

namespace qt::surface {

/// The nine pads of the pad editor, each showing what it sends in the layer that is edited, under
/// the buttons of pad layers 2 to 4.
///
/// Keys, while one of them has the focus:
///   arrows, Home, End  to the next pad that way, which is selected; layer buttons only get the
///                      focus
///   Space              click
///   2 to 4             pad layers, as their buttons would; with Alt and with Shift too
class PadPanel final : public FacePanel {
public:
    /// The controller must outlive it.
    explicit PadPanel(editor::pad& controller, QWidget* parent = nullptr);

    /// Shows afresh what each pad sends; to be called when an action has ended.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void addPads();
    void addLayers();
    [[nodiscard]] bool pressLayer(const QKeyEvent& event);

    editor::pad& controller_;
};

}  // namespace qt::surface
