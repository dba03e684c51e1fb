#include "app/Demo.h"

namespace app {

Demo::Demo()
    : otherDevice(midiService.addDevice("Spare Port")),
      device(midiService.addDevice("Tormelk")),
      source(device.addSource("Tormelk MIDI 1")),
      destination(device.addDestination("Tormelk MIDI 1")),
      simulatorView(tormelk),
      editor(midiService, desktop) {
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
    const QRect main = editor.view.frameGeometry();
    simulatorView.move(main.right() + 1, main.top());
}

}  // namespace app
