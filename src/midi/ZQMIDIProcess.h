#pragma once

#include <cstdint>
#include <ctime>
#include <functional>
#include <memory>

#include "midi/ZQMIDIManager.h"
#include "platform/MidiService.h"
#include "platform/NotificationCentre.h"

namespace midi {

/// What the endpoint layer has once per process: the manager, and what tells this process's own
/// endpoints from others. An object, so that two editors can live in one process.
///
/// Destroying it closes every port and the connection to the service; nothing that the manager
/// handed out may be used afterwards, and published endpoints must be gone before.
class ZQMIDIProcess {
public:
    using Clock = std::function<std::time_t()>;

    /// `clock` gives whole seconds since the epoch.
    ZQMIDIProcess(
        platform::MidiService& service, platform::NotificationCentre& notificationCentre,
        Clock clock = [] { return std::time(nullptr); });
    ZQMIDIProcess(const ZQMIDIProcess&) = delete;
    ZQMIDIProcess& operator=(const ZQMIDIProcess&) = delete;
    ~ZQMIDIProcess();

    /// The manager; the first call makes it, and with it the connection to the service.
    [[nodiscard]] ZQMIDIManager& sharedInstance();
    [[nodiscard]] bool hasManager() const { return sharedInstance_ != nullptr; }

    [[nodiscard]] platform::MidiService& service() const { return service_; }
    [[nodiscard]] platform::NotificationCentre& notificationCentre() const {
        return notificationCentre_;
    }
    [[nodiscard]] std::int32_t processID() const { return processID_; }

    /// The clock plus a counter that grows with every call, in 32 bits.
    [[nodiscard]] std::int32_t nextUniqueIDCandidate();

private:
    platform::MidiService& service_;
    platform::NotificationCentre& notificationCentre_;
    Clock clock_;
    std::int32_t processID_;
    std::uint32_t sequence_ = 0;
    std::unique_ptr<ZQMIDIManager> sharedInstance_;
};

}  // namespace midi
