#include "app/Editor.h"

#include <utility>

#include "qt/windows/views.h"

namespace app {

Editor::Editor(platform::MidiService& midiService, qt::desktop::QtDesktop& desktopForIt,
               editor::UnsavedWork::Place placeOfUnsavedWork)
    : desktop(desktopForIt),
      midiProcess(midiService, notificationCentre),
      devices(midiProcess),
      firmware(midiProcess),
      controller(state, window, desktop, devices, firmware),
      unsavedWork(controller, window, std::move(placeOfUnsavedWork)),
      wakeUp(unsavedWork),
      view(window, controller),
      midiDispatcher(midiService),
      lastWindowClosed(desktop.onLastWindowClosed(
          [this] { (void)controller.applicationShouldTerminateAfterLastWindowClosed(); })) {
    qt::windows::addEditorViews(desktop);
    controller.awakeFromNib();
    unsavedWork.lookAround();
    view.offer(unsavedWork);
}

}  // namespace app
