#include "platform/alsa/events.h"

#include <array>
#include <cstddef>

namespace platform::alsa {
namespace {

/// No event but a SysEx has more bytes: the controllers with a number of 14 bits make four
/// messages.
constexpr std::size_t longestShortEvent = 16;

bool isSysEx(std::span<const std::uint8_t> message) {
    // A piece from the middle of one begins with data.
    return message.front() == 0xF0 || message.front() == 0xF7 || message.front() < 0x80;
}

}  // namespace

Codec makeCodec() {
    snd_midi_event_t* codec = nullptr;
    if (snd_midi_event_new(longestShortEvent, &codec) < 0) {
        return nullptr;
    }
    snd_midi_event_no_status(codec, 1);
    return Codec(codec);
}

bool toEvent(snd_midi_event_t& codec, std::span<const std::uint8_t> message,
             snd_seq_event_t& event) {
    if (message.empty()) {
        return false;
    }
    event = {};
    event.queue = SND_SEQ_QUEUE_DIRECT;
    if (isSysEx(message)) {
        event.type = SND_SEQ_EVENT_SYSEX;
        event.flags = SND_SEQ_EVENT_LENGTH_VARIABLE;
        event.data.ext.len = static_cast<unsigned int>(message.size());
        event.data.ext.ptr = const_cast<std::uint8_t*>(message.data());
        return true;
    }
    snd_midi_event_reset_encode(&codec);
    const long taken =
        snd_midi_event_encode(&codec, message.data(), static_cast<long>(message.size()), &event);
    return taken == static_cast<long>(message.size()) && event.type != SND_SEQ_EVENT_NONE;
}

std::vector<std::uint8_t> bytesOf(snd_midi_event_t& codec, const snd_seq_event_t& event) {
    if (event.type == SND_SEQ_EVENT_SYSEX) {
        const auto* const bytes = static_cast<const std::uint8_t*>(event.data.ext.ptr);
        return {bytes, bytes + event.data.ext.len};
    }
    std::array<std::uint8_t, longestShortEvent> bytes{};
    snd_midi_event_reset_decode(&codec);
    const long count =
        snd_midi_event_decode(&codec, bytes.data(), static_cast<long>(bytes.size()), &event);
    return count > 0 ? std::vector<std::uint8_t>(bytes.data(), bytes.data() + count)
                     : std::vector<std::uint8_t>();
}

}  // namespace platform::alsa
