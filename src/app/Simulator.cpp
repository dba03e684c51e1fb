#include "app/Simulator.h"

#include "devices/missingMidi.h"

namespace app {
namespace {

constexpr const char* portName = "Tormelk MIDI 1";

}  // namespace

Simulator::Simulator(platform::MidiService& midiService)
    : midiService_(midiService),
      midiProcess_(midiService, notificationCentre_),
      inbox_([this](std::span<const std::uint8_t> bytes) { tormelk.receive(bytes); }),
      stateChanges_(midiService.stateChanges().addObserver(platform::MIDIServiceStateChanged,
                                                           [this](const void*) { follow(); })),
      midiDispatcher_(midiService) {
    publish();
}

Simulator::~Simulator() {
    destination_->removeReceiver(&inbox_);
}

std::string Simulator::trouble() const {
    if (isPublished()) {
        return {};
    }
    const platform::ServiceState midi = midiService_.state();
    const std::string why = devices::whyNoMidi(midi);
    const std::string remedy = devices::remedyForNoMidi(midi);
    return "Other programs cannot see this controller. " +
           (why.empty() ? "Its MIDI port cannot be made." : why) +
           (remedy.empty() ? "" : " " + remedy);
}

void Simulator::publish() {
    source_.emplace(midiProcess_.sharedInstance(), portName);
    destination_.emplace(midiProcess_.sharedInstance(), portName);
    destination_->addReceiver(&inbox_);
}

void Simulator::follow() {
    if (isPublished()) {
        return;
    }
    destination_->removeReceiver(&inbox_);
    publish();
    if (onChange) {
        onChange();
    }
}

}  // namespace app
