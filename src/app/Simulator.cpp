#include "app/Simulator.h"

namespace app {
namespace {

constexpr const char* portName = "Tormelk MIDI 1";

}  // namespace

Simulator::Simulator(platform::MidiService& midiService)
    : midiProcess(midiService, notificationCentre),
      source(midiProcess.sharedInstance(), portName),
      destination(midiProcess.sharedInstance(), portName),
      inbox([this](std::span<const std::uint8_t> bytes) { tormelk.receive(bytes); }),
      midiDispatcher(midiService) {
    destination.addReceiver(&inbox);
}

Simulator::~Simulator() {
    destination.removeReceiver(&inbox);
}

}  // namespace app
