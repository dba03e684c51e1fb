#pragma once

#include <memory>

#include "editor/pad.h"
#include "qt/widgets/DialogView.h"
#include "qt/widgets/ModelLink.h"
#include "qt/windows/UndoActions.h"

class QLabel;
class QLayout;

namespace qt::surface {
class PadPanel;
}

namespace qt::windows {

/// The pad editor: the nine pads of pad layers 2 to 4 as they lie on the controller, and beside
/// them what belongs to the selected pad and what belongs to the whole layer.
class PadView final : public widgets::DialogView {
public:
    /// The controller must outlive it.
    explicit PadView(editor::pad& controller);

private:
    [[nodiscard]] QLayout* makeSettings();
    [[nodiscard]] QLayout* makeFoot();
    /// Shows what no widget model tells: faces, selection, layer.
    void refresh();

    editor::pad& controller_;
    surface::PadPanel* pads_;
    QLabel* pad_;
    QLabel* sends_;
    QLabel* layer_;
    std::unique_ptr<UndoActions> undo_;
    widgets::ModelLink<editor::pad, &editor::pad::actionEnded> link_;
};

}  // namespace qt::windows
