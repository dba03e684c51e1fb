#include "app/Editor.h"

#include "qt/windows/views.h"

namespace app {

Editor::Editor(platform::MidiService& midiService, qt::desktop::QtDesktop& desktopForIt)
    : desktop(desktopForIt),
      midiProcess(midiService, notificationCentre),
      devices(midiProcess),
      firmware(midiProcess),
      controller(state, window, desktop, devices, firmware),
      view(window, controller),
      midiDispatcher(midiService),
      lastWindowClosed(desktop.onLastWindowClosed(
          [this] { (void)controller.applicationShouldTerminateAfterLastWindowClosed(); })) {
    qt::windows::addEditorViews(desktop);
    controller.awakeFromNib();
}

}  // namespace app
