#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "kernel/HostSide.h"
#include "kernel/ReceivedBytes.h"
#include "kernel/rawMidi.h"

namespace kernel {

/// A USB MIDI device that can be plugged into this very machine and out again. The kernel plays the
/// device's part (the function f_midi, set up through configfs, at an emulated USB controller) as
/// well as the host's, which enumerates it as it would a real one: the sequencer client has the
/// product's name, its ports are called "<product> MIDI 1" and so on.
///
///     UsbMidiGadget tormelk({.product = "Tormelk"});
///     tormelk.plug();                                  // the sequencer knows it now
///     ...
///     EXPECT_EQ(tormelk.received().atLeast(254, 2s), block);
///     tormelk.unplug();
///
/// It takes data as fast as the bus carries it and never makes the host wait; UserSpaceMidiDevice
/// does. What arrives in the last moment before it is unplugged may be lost on the device's side.
///
/// Three of them can be there at the same time. Plug and unplug them from one thread only.
class UsbMidiGadget {
public:
    struct Options {
        std::string product = "Tormelk";
        /// How many ports each way; the host can send to, and receive from, as many.
        int ports = 1;
        /// 480 Mbit/s; otherwise 12 Mbit/s, as MIDI controllers have.
        bool highSpeed = false;
    };

    explicit UsbMidiGadget(const Options& options);
    /// Unplugs it and leaves nothing behind.
    ~UsbMidiGadget();
    UsbMidiGadget(const UsbMidiGadget&) = delete;
    UsbMidiGadget& operator=(const UsbMidiGadget&) = delete;

    /// Returns when the sequencer has the client with all its ports.
    void plug();
    /// Returns when the client is gone. What was received stays readable.
    void unplug();

    [[nodiscard]] HostSide host() const { return HostSide(controller_); }

    /// What came out at the device's end of the cable, since it was made.
    [[nodiscard]] ReceivedBytes& received(int port = 0);

    /// Sends from the device to the host.
    void send(const Bytes& bytes, int port = 0) const;

    /// The device's side as raw MIDI, to be given to other programs. Its inputs are taken.
    [[nodiscard]] std::string rawDevice(int port = 0) const;

private:
    void setUp(const Options& options) const;
    void connect() const;
    void disconnect() const;

    int controller_;
    std::filesystem::path folder_;
    std::vector<std::unique_ptr<ReceivedBytes>> received_;
    std::vector<std::unique_ptr<RawMidiCollector>> collectors_;
    bool plugged_ = false;
};

}  // namespace kernel
