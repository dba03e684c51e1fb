#pragma once

// The editor's logic put together without a screen and without MIDI, for tests that work it through
// its widget models or set a window upon it.

#include "devices/seldev.h"
#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/mainController.h"
#include "firmware/FirmwareState.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/AbsentMidiService.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedDesktop.h"

namespace support {

/// Its main window is not awake yet.
struct ScriptedEditor {
    platform::AbsentMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    devices::seldevChoice devices{process};
    firmware::FirmwareState firmware{process};
    editor::EditorState state;
    editor::MainWindow window;
    ScriptedDesktop desktop;
    editor::mainController controller{state, window, desktop, devices, firmware};
};

}  // namespace support
