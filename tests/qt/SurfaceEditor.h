#pragma once

// The drawn controller over a whole editor, without the main window around it.

#include <QString>
#include <functional>

#include "devices/seldev.h"
#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/mainController.h"
#include "firmware/FirmwareState.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/AbsentMidiService.h"
#include "platform/NotificationCentre.h"
#include "qt/FaceButton.h"
#include "qt/SurfacePanel.h"
#include "support/ScriptedDesktop.h"

namespace tests {

struct SurfaceEditor {
    platform::AbsentMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    devices::seldevChoice devices{process};
    firmware::FirmwareState firmware{process};
    editor::EditorState state;
    editor::MainWindow window;
    support::ScriptedDesktop desktop;
    editor::mainController controller{state, window, desktop, devices, firmware};
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
