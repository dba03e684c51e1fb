#pragma once

#include <functional>

#include "midi/ZQMIDIRealDestination.h"
#include "platform/MidiService.h"
#include "sending/pace.h"

namespace sending {

/// By which way something goes out.
struct Way {
    platform::MidiService& service;
    /// The output that is chosen now; may be none. It is asked for before each message.
    std::function<midi::ZQMIDIRealDestination*()> output;
    /// Waits; never shorter than asked.
    std::function<void(Seconds)> pause;
};

}  // namespace sending
