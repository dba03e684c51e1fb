#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "kernel/HostSide.h"
#include "kernel/ReceivedBytes.h"

namespace kernel {

/// A USB MIDI device at full speed, played by this program, that can make the host wait: it takes
/// data at a rate of its choice, or stops taking any, as real devices do. Its ports can have names;
/// the host calls them "<product> <name>" then.
///
/// It has no sound card of its own and it sends nothing. There can be one at a time, beside three
/// UsbMidiGadget. Plug and unplug it from one thread only.
class UserSpaceMidiDevice {
public:
    struct Options {
        std::string product = "Tormelk";
        /// One port for each name.
        std::vector<std::string> portNames = {"Port"};
        /// How many bytes of MIDI it takes in a second; 0: as many as the bus carries. An old cable
        /// carries 3125.
        int bytesPerSecond = 0;
    };

    explicit UserSpaceMidiDevice(Options options);
    /// Unplugs it.
    ~UserSpaceMidiDevice();
    UserSpaceMidiDevice(const UserSpaceMidiDevice&) = delete;
    UserSpaceMidiDevice& operator=(const UserSpaceMidiDevice&) = delete;

    /// Returns when the sequencer has the client with all its ports.
    void plug();
    /// Returns when the client is gone. What was received stays readable.
    void unplug();

    /// Takes nothing any more; at most one transfer of 64 bytes (16 short messages) is still taken.
    void stopTaking();
    /// Takes data again at its rate.
    void goOnTaking();

    [[nodiscard]] HostSide host() const { return HostSide(0); }

    /// What it has taken, since it was made.
    [[nodiscard]] ReceivedBytes& received(int port = 0);

private:
    class Connection;

    Options options_;
    std::vector<std::unique_ptr<ReceivedBytes>> received_;
    std::unique_ptr<Connection> connection_;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool taking_ = true;
};

}  // namespace kernel
