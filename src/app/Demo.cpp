#include "app/Demo.h"

#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace app {

namespace {

/// Its top left corner stays in the area even where it is too large for it.
void moveInto(const QRect& area, QRect& window) {
    window.moveRight(std::min(window.right(), area.right()));
    window.moveBottom(std::min(window.bottom(), area.bottom()));
    window.moveLeft(std::max(window.left(), area.left()));
    window.moveTop(std::max(window.top(), area.top()));
}

}  // namespace

Demo::Demo(platform::software::SoftwareMidiService& service,
           qt::desktop::QtDesktop::EndProcess endProcess)
    : midiService(service),
      otherDevice(midiService.addDevice("Spare Port")),
      device(midiService.addDevice("Tormelk")),
      source(device.addSource("Tormelk MIDI 1")),
      destination(device.addDestination("Tormelk MIDI 1")),
      desktop(std::move(endProcess)),
      simulatorView(tormelk),
      editor(midiService, desktop, folder.filePath(QStringLiteral("unsaved")).toStdString()) {
    otherDevice.addSource("Spare Port MIDI 1");
    otherDevice.addDestination("Spare Port MIDI 1");
    destination.onReceive([this](const platform::MIDIPacketList& list) {
        platform::forEachPacket(list, [this](std::uint64_t, std::span<const std::uint8_t> bytes) {
            tormelk.receive(bytes);
        });
    });
}

void Demo::show() {
    simulatorView.show();
    editor.show();  // in front
    for (const QWidget* window :
         {static_cast<QWidget*>(&simulatorView), static_cast<QWidget*>(&editor.view)}) {
        window->windowHandle()->installEventFilter(&placing_);
    }
}

bool Demo::Placing::eventFilter(QObject* watched, QEvent* event) {
    const bool shown = event->type() == QEvent::Expose &&
                       demo_.simulatorView.windowHandle()->isExposed() &&
                       demo_.editor.view.windowHandle()->isExposed();
    if (shown && !isDone_) {
        isDone_ = true;
        demo_.placeSideBySide();
    }
    return QObject::eventFilter(watched, event);
}

void Demo::placeSideBySide() {
    const QRect area = editor.view.screen()->availableGeometry();
    QRect left = editor.view.frameGeometry();
    QRect right = simulatorView.frameGeometry();
    // As far left and as high as both need, but no corner off the screen.
    left.moveLeft(std::min(left.left(), area.right() + 1 - left.width() - right.width()));
    const int higher = std::max(left.height(), right.height());
    left.moveTop(std::min(left.top(), area.bottom() + 1 - higher));
    moveInto(area, left);
    right.moveTopLeft(left.topRight() + QPoint(1, 0));
    moveInto(area, right);
    editor.view.move(left.topLeft());
    simulatorView.move(right.topLeft());
}

}  // namespace app
