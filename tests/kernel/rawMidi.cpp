#include "kernel/rawMidi.h"

#include <poll.h>

#include <array>
#include <cerrno>

#include "kernel/systemFiles.h"

namespace kernel {

namespace {

constexpr std::size_t inputBufferSize = 1 << 20;
/// How often a collector that nothing arrives at looks whether it shall stop.
constexpr int stopCheckMilliseconds = 100;

void require(long result, const std::string& what) {
    if (result < 0) {
        throw SystemFailure(what, static_cast<int>(-result));
    }
}

}  // namespace

RawMidi openRawMidiInput(const std::string& device) {
    snd_rawmidi_t* opened = nullptr;
    require(snd_rawmidi_open(&opened, nullptr, device.c_str(), SND_RAWMIDI_NONBLOCK),
            "opening the input " + device);
    RawMidi input(opened);
    snd_rawmidi_params_t* parameters = nullptr;
    snd_rawmidi_params_alloca(&parameters);
    require(snd_rawmidi_params_current(opened, parameters), "reading the settings of " + device);
    require(snd_rawmidi_params_set_buffer_size(opened, parameters, inputBufferSize),
            "enlarging the buffer of " + device);
    require(snd_rawmidi_params(opened, parameters), "setting up " + device);
    return input;
}

RawMidi openRawMidiOutput(const std::string& device) {
    snd_rawmidi_t* opened = nullptr;
    require(snd_rawmidi_open(nullptr, &opened, device.c_str(), 0), "opening the output " + device);
    return RawMidi(opened);
}

void writeRawMidi(snd_rawmidi_t& output, const Bytes& bytes) {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t written =
            snd_rawmidi_write(&output, bytes.data() + done, bytes.size() - done);
        require(written, "writing raw MIDI");
        done += static_cast<std::size_t>(written);
    }
    require(snd_rawmidi_drain(&output), "waiting until raw MIDI is out");
}

RawMidiCollector::RawMidiCollector(const std::string& device, ReceivedBytes& received)
    : device_(openRawMidiInput(device)), received_(received), thread_([this] { collect(); }) {}

RawMidiCollector::~RawMidiCollector() {
    stop_ = true;
    thread_.join();
}

void RawMidiCollector::collect() {
    std::array<pollfd, 1> descriptor{};
    snd_rawmidi_poll_descriptors(device_.get(), descriptor.data(), descriptor.size());
    std::array<std::uint8_t, 4096> part{};
    for (;;) {
        const ssize_t size = snd_rawmidi_read(device_.get(), part.data(), part.size());
        if (size > 0) {
            received_.add({part.data(), static_cast<std::size_t>(size)});
        } else if (stop_ || (size < 0 && size != -EAGAIN)) {
            return;
        } else {
            poll(descriptor.data(), descriptor.size(), stopCheckMilliseconds);
        }
    }
}

}  // namespace kernel
