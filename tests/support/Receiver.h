#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/software/Devices.h"
#include "support/RecordedPackets.h"

namespace support {

class ScriptedMidiService;

/// How a destination of a ScriptedMidiService takes what is sent to it, and what it took. It keeps
/// to this while it is unplugged and plugged in again.
class Receiver {
public:
    /// Each list it took, in order.
    [[nodiscard]] std::vector<RecordedPacketList> received() const { return received_; }
    /// All bytes it took, without packet limits.
    [[nodiscard]] std::vector<std::uint8_t> receivedBytes() const;
    void forgetReceived() { received_.clear(); }
    /// Whether lists are kept for `received`; they are, unless switched off.
    void keepReceived(bool keep) { keepsReceived_ = keep; }

    /// The other programs that are connected to this port; none at first.
    void setConnectedPrograms(std::vector<std::string> names);

    // How it takes what is sent here. At first: all of it at once, and that is known at once.

    /// From now on what is sent waits, and what waits when the port goes is lost. Senders are told
    /// that nothing was taken for so long.
    void holdBack(std::chrono::milliseconds standstill = {});
    /// Takes what waits, and everything after it.
    void takeWaiting();
    /// It has taken nothing for too long: what waits is lost.
    void giveUp();
    /// Another program keeps the port to itself, until `freeAgain`; its name may be unknown.
    void keepInUse(std::string program) { usedBy_ = std::move(program); }
    void freeAgain() { usedBy_.reset(); }
    /// From now on what was taken is known to have arrived only after `settle`.
    void settleLater() { settlesLater_ = true; }
    void settle();

private:
    friend class ScriptedMidiService;
    Receiver(ScriptedMidiService& service, const platform::software::Destination& destination)
        : service_(service), destination_(destination) {}

    ScriptedMidiService& service_;
    const platform::software::Destination& destination_;
    std::vector<RecordedPacketList> received_;
    bool keepsReceived_ = true;
    std::vector<std::string> connectedPrograms_;
    std::optional<std::chrono::milliseconds> standstill_;  // while it holds back
    std::optional<std::string> usedBy_;
    bool settlesLater_ = false;
};

}  // namespace support
