#pragma once

#include <optional>

namespace kernel {

/// What the host has made of the device at one of the four emulated USB controllers: its sound
/// card and its sequencer client.
///
/// The device's side of the cable is dummy_udc.N, the host's is dummy_hcd.N.
class HostSide {
public:
    explicit HostSide(int controller) : controller_(controller) {}

    /// The number of the sound card that stands for the device, if it has been enumerated.
    [[nodiscard]] std::optional<int> card() const;

    /// The number of the sequencer client that stands for it: nothing before its last port is
    /// there.
    [[nodiscard]] std::optional<int> client() const;

    /// How fast the two speak, in Mbit/s: 12 or 480. Throws when there is no device.
    [[nodiscard]] int megabitsPerSecond() const;

    /// Waits until the client is there with all its ports. Throws when it takes more than 10 s.
    void waitUntilThere() const;

    /// Waits until card and client are gone. Throws when it takes more than 30 s: a program that is
    /// closing the device may hold it for 10 s.
    void waitUntilGone() const;

private:
    int controller_;
};

}  // namespace kernel
