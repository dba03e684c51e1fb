#pragma once

#include "app/WakeUp.h"
#include "devices/seldev.h"
#include "editor/EditorState.h"
#include "editor/MainWindow.h"
#include "editor/UnsavedWork.h"
#include "editor/mainController.h"
#include "firmware/FirmwareState.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/MidiService.h"
#include "platform/NotificationCentre.h"
#include "qt/desktop/MidiDispatcher.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/windows/MainWindowView.h"

namespace app {

/// The editor, put together over a MIDI service and a desktop; both must outlive it. Its main
/// window is awake, and shown by `show`. Unsaved work is kept at the place.
struct Editor {
    Editor(platform::MidiService& midiService, qt::desktop::QtDesktop& desktop,
           editor::UnsavedWork::Place placeOfUnsavedWork);
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    void show() { window.window.makeKeyAndOrderFront(); }

    qt::desktop::QtDesktop& desktop;
    platform::NotificationCentre notificationCentre;
    midi::ZQMIDIProcess midiProcess;
    devices::seldevChoice devices;
    firmware::FirmwareState firmware;
    editor::EditorState state;
    editor::MainWindow window;
    editor::mainController controller;
    editor::UnsavedWork unsavedWork;
    WakeUp wakeUp;
    qt::windows::MainWindowView view;
    qt::desktop::MidiDispatcher midiDispatcher;
    qt::desktop::QtDesktop::Registration lastWindowClosed;
};

}  // namespace app
