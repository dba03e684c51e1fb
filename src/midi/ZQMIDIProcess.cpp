#include "midi/ZQMIDIProcess.h"

#include <unistd.h>

#include <utility>

namespace midi {

ZQMIDIProcess::ZQMIDIProcess(platform::MidiService& service,
                             platform::NotificationCentre& notificationCentre, Clock clock)
    : service_(service),
      notificationCentre_(notificationCentre),
      clock_(std::move(clock)),
      processID_(static_cast<std::int32_t>(getpid())) {}

ZQMIDIProcess::~ZQMIDIProcess() {
    if (sharedInstance_ == nullptr) {
        return;
    }
    // A manager never gives up its client; the end of the process does.
    const platform::MIDIClientRef client = sharedInstance_->midiClientRef();
    sharedInstance_.reset();
    if (client != 0) {
        service_.MIDIClientDispose(client);
    }
}

ZQMIDIManager& ZQMIDIProcess::sharedInstance() {
    if (sharedInstance_ == nullptr) {
        sharedInstance_ = std::make_unique<ZQMIDIManager>(*this);
    }
    return *sharedInstance_;
}

std::int32_t ZQMIDIProcess::nextUniqueIDCandidate() {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(clock_()) + sequence_++);
}

}  // namespace midi
