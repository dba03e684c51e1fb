#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/alsa/Sequencer.h"

namespace platform::alsa {

struct CodecCloser {
    void operator()(snd_midi_event_t* codec) const { snd_midi_event_free(codec); }
};
using Codec = std::unique_ptr<snd_midi_event_t, CodecCloser>;

/// What turns short messages into events and back. For one thread at a time.
[[nodiscard]] Codec makeCodec();

/// Makes the event of a message as MessageSplitter gives it, to be sent at once; it has no sender
/// and no destination yet. The event of a SysEx points to the bytes. False if there is none.
[[nodiscard]] bool toEvent(snd_midi_event_t& codec, std::span<const std::uint8_t> message,
                           snd_seq_event_t& event);

/// The bytes of an event, without running status; none if it is no MIDI.
[[nodiscard]] std::vector<std::uint8_t> bytesOf(snd_midi_event_t& codec,
                                                const snd_seq_event_t& event);

}  // namespace platform::alsa
