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
      midiDispatcher(midiService) {
    qt::addEditorViews(desktop);
    desktop.onLastWindowClosed(
        [this] { (void)controller.applicationShouldTerminateAfterLastWindowClosed(); });
    controller.awakeFromNib();
}

Editor::~Editor() {
    desktop.onLastWindowClosed(nullptr);
}

}  // namespace app
