#include "app/Editor.h"

#include "qt/views.h"

namespace app {

Editor::Editor(platform::MidiService& midiService, qt::QtDesktop& desktopForIt)
    : desktop(desktopForIt),
      midiProcess(midiService, notificationCentre),
      devices(midiProcess),
      firmware(midiProcess),
      controller(state, window, desktop, devices, firmware),
      view(window, controller),
      midiDispatcher(midiService),
      lastWindowClosed(desktop.onLastWindowClosed(
          [this] { (void)controller.applicationShouldTerminateAfterLastWindowClosed(); })) {
    qt::addEditorViews(desktop);
    controller.awakeFromNib();
}

}  // namespace app
