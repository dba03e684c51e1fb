#pragma once

#include <alsa/asoundlib.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "kernel/ReceivedBytes.h"

// Raw MIDI devices, named as the library names them: "hw:<card>,0,<port>". Each port can be opened
// once in each direction.

namespace kernel {

struct RawMidiCloser {
    void operator()(snd_rawmidi_t* device) const { snd_rawmidi_close(device); }
};
using RawMidi = std::unique_ptr<snd_rawmidi_t, RawMidiCloser>;

/// Opens a device to read from. Throws when it is not there or somebody else has it.
[[nodiscard]] RawMidi openRawMidiInput(const std::string& device);

/// Opens a device to write to; writing waits until there is space. Throws as above.
[[nodiscard]] RawMidi openRawMidiOutput(const std::string& device);

/// Writes the bytes and waits until the other side has taken them. Throws when it is refused.
void writeRawMidi(snd_rawmidi_t& output, const Bytes& bytes);

/// Takes in all that arrives at a device, from a thread of its own and with a buffer so large that
/// nothing is lost here: what is missing was lost before. Ends by itself when the device vanishes.
class RawMidiCollector {
public:
    /// Adds what arrives to `received`, which must outlive this.
    RawMidiCollector(const std::string& device, ReceivedBytes& received);
    ~RawMidiCollector();
    RawMidiCollector(const RawMidiCollector&) = delete;
    RawMidiCollector& operator=(const RawMidiCollector&) = delete;

private:
    void collect();

    RawMidi device_;
    ReceivedBytes& received_;
    std::atomic<bool> stop_ = false;
    std::thread thread_;
};

}  // namespace kernel
