#pragma once

#include <atomic>
#include <functional>

#include "midi/ZQMIDIEndpoint.h"

namespace midi {

/// An endpoint that this process publishes; it is there from construction to destruction. It must
/// not outlive its manager.
class ZQMIDIVirtualEndpoint : public ZQMIDIEndpoint {
public:
    /// Whether other programs are asked not to show the endpoint.
    [[nodiscard]] bool isPrivate() const;
    void makePrivate(bool isPrivate);

    /// While there is a sender or a receiver.
    [[nodiscard]] bool ioIsRunning() const final { return ioIsRunning_; }
    void startIO() final { ioIsRunning_ = true; }
    void stopIO() final { ioIsRunning_ = false; }

protected:
    explicit ZQMIDIVirtualEndpoint(ZQMIDIManager& manager) : ZQMIDIEndpoint(manager) {}

    /// Publishes what `create` makes, under a unique ID of its own and marked as this process's,
    /// and binds to it; all of it unnoticed by the manager. 0 is an endpoint that could not be
    /// made.
    void publish(const std::function<platform::MIDIEndpointRef()>& create);
    void withdraw();

private:
    std::atomic<bool> ioIsRunning_ = false;
};

}  // namespace midi
