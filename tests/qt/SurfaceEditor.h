#pragma once

// The drawn controller over a whole editor, without the main window around it.

#include <QString>
#include <functional>

#include "qt/FaceButton.h"
#include "qt/SurfacePanel.h"
#include "support/ScriptedEditor.h"

namespace tests {

struct SurfaceEditor : support::ScriptedEditor {
    qt::SurfacePanel panel{window, state};

    SurfaceEditor();

    /// Selects a control by its button.
    void click(int tag);
    void chooseMode(int mode) { window.combo_mode.choose(mode); }
    [[nodiscard]] qt::FaceButton& face(const QString& outlet) const;
    [[nodiscard]] qt::FaceButton& faceOf(int tag) const;
};

/// Shows the panel, in turn, in each state that looks different, with a name for it. Its size is
/// the one it opens with.
void forEverySurface(const std::function<void(SurfaceEditor& editor, const QString& name)>& visit);

}  // namespace tests
