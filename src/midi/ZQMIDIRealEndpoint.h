#pragma once

#include <atomic>
#include <mutex>

#include "midi/ZQMIDIEndpoint.h"

namespace midi {

/// An endpoint that the system offers: a port while it is in use, and the rule for finding the
/// same endpoint again after the setup changed.
class ZQMIDIRealEndpoint : public ZQMIDIEndpoint {
public:
    /// Finds the endpoint of the service that this object stands for: its handle while that lives,
    /// else by unique ID, else by name. A port that is open moves along. Without an endpoint the
    /// object goes offline and keeps what it knew.
    void syncWithMIDIEndpoint();

    /// While a port is open.
    [[nodiscard]] bool ioIsRunning() const final { return midiPortRef_ != 0; }
    void startIO() final;
    void stopIO() final;

protected:
    ZQMIDIRealEndpoint(ZQMIDIManager& manager, platform::MIDIEndpointRef endpoint);
    /// Offline until `syncWithMIDIEndpoint` finds the endpoint.
    ZQMIDIRealEndpoint(ZQMIDIManager& manager, const ZQMIDIEndpointDescriptor& descriptor);

    [[nodiscard]] platform::MIDIPortRef midiPortRef() const { return midiPortRef_; }

private:
    [[nodiscard]] virtual platform::MIDIEndpointRef findEndpoint() const = 0;
    /// The new port, 0 if there is none to be had.
    virtual platform::MIDIPortRef openPort(platform::MIDIEndpointRef endpoint) = 0;
    virtual void closePort(platform::MIDIPortRef port, platform::MIDIEndpointRef endpoint) = 0;

    void bindTo(platform::MIDIEndpointRef endpoint);

    // Guards changes of handle and port as one: the last receiver may leave on the input thread
    // while the main thread binds anew. Never held while a port is closed, for that waits for
    // callbacks.
    std::mutex ioMutex_;
    std::atomic<platform::MIDIPortRef> midiPortRef_ = 0;
};

}  // namespace midi
