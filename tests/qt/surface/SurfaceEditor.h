#pragma once

// The drawn controller over a whole editor, without the main window around it.

#include <QString>
#include <functional>

#include "qt/surface/FaceButton.h"
#include "qt/surface/SurfacePanel.h"
#include "support/ScriptedEditor.h"

namespace tests {

struct SurfaceEditor : support::ScriptedEditor {
    qt::surface::SurfacePanel panel{window, state};

    SurfaceEditor();

    /// Selects a control by its button.
    void click(int tag);
    void chooseMode(int mode) { window.combo_mode.choose(mode); }
    [[nodiscard]] qt::surface::FaceButton& face(const QString& outlet) const;
    [[nodiscard]] qt::surface::FaceButton& faceOf(int tag) const;
};

/// Shows the panel, in turn, in each state that looks different, with a name for it. Its size is
/// the one it opens with.
void forEverySurface(const std::function<void(SurfaceEditor& editor, const QString& name)>& visit);

}  // namespace tests
