#pragma once

#include <QSocketNotifier>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <vector>

#include "midi/ZQMIDIReceiver.h"

namespace app {

/// Takes MIDI in on the service's thread, at once, and hands it on where the event loop runs.
class Inbox final : public midi::ZQMIDIReceiver {
public:
    /// `take` gets the bytes in their order, cut anywhere.
    explicit Inbox(std::function<void(std::span<const std::uint8_t>)> take);
    ~Inbox() override;

    void processMIDIPacketList(const platform::MIDIPacketList& list, const void* sender) override;

private:
    void handOn();

    const std::function<void(std::span<const std::uint8_t>)> take_;
    const int filled_;  // an eventfd
    QSocketNotifier notifier_;
    std::mutex mutex_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace app
