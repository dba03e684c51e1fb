#pragma once

// The editor's logic put together with no MIDI device, and without a screen or for one, for tests
// that work it through its widget models or set a window upon it.

#include "devices/seldev.h"
#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/mainController.h"
#include "firmware/FirmwareState.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "support/ScriptedDesktop.h"
#include "support/ScriptedMidiService.h"

namespace support {

/// What the editor is put together from, but for a desktop and the controller above it.
struct EditorParts {
    ScriptedMidiService midiService;
    platform::NotificationCentre notificationCentre;
    midi::ZQMIDIProcess midiProcess{midiService, notificationCentre};
    devices::seldevChoice devices{midiProcess};
    firmware::FirmwareState firmware{midiProcess};
    editor::EditorState state;
    editor::MainWindow window;
};

/// Its main window is not awake yet.
struct ScriptedEditor : EditorParts {
    ScriptedDesktop desktop;
    editor::mainController controller{state, window, desktop, devices, firmware};
};

}  // namespace support
