#pragma once

// What is sent as one, a Send or a firmware upload, and what is known of its way out of this
// computer. It is handed over message by message to one output. From the first byte on that did not
// get there it is cut, and stays so: an output that comes back does not mend it.

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "midi/ZQMIDIRealDestination.h"
#include "platform/MidiService.h"
#include "platform/PacketList.h"

namespace sending {

enum class Trouble {
    None,
    NoOutput,      ///< none was chosen
    Offline,       ///< the output was not there from the start
    WentAway,      ///< it is not there any more, or was not all the time
    TakesNothing,  ///< it is there and has taken nothing for too long
    InUse,         ///< another program keeps it to itself
    Refused,       ///< it is there, and the system did not take what was for it
};

struct Receipt {
    std::string output;            ///< the name of where it goes; empty: there was none
    std::uint64_t bytes = 0;       ///< so long it is as a whole
    std::uint64_t handedOver = 0;  ///< of these, what the output was given
    std::uint64_t left = 0;        ///< and what is known to have left this computer
    Trouble trouble = Trouble::None;
    std::string program;                      ///< InUse: its name; empty where it is not known
    std::chrono::milliseconds standstill{0};  ///< so long it has been waiting to be taken
    /// Nothing will change any more. Without trouble, and not whole: it could not be found out.
    bool isSettled = false;

    [[nodiscard]] bool isCut() const { return trouble != Trouble::None && left < bytes; }
    [[nodiscard]] bool hasLeft() const { return left == bytes; }
};

class Consignment {
public:
    /// What was handed to the output before is forgotten. Where there is none, or an offline one,
    /// there is trouble from the start.
    Consignment(platform::MidiService& service, std::uint64_t bytes,
                midi::ZQMIDIRealDestination* output);

    /// Whether `output` is where it goes, as it was at the beginning, and online.
    [[nodiscard]] bool goesTo(const midi::ZQMIDIRealDestination* output) const;
    /// Gives a list to an output, none perhaps; by another one than its own it misses these bytes.
    void handOver(midi::ZQMIDIRealDestination* output, const platform::MIDIPacketList& list,
                  const void* sender);
    /// The next bytes cannot be handed over. What still waits in this computer is thrown away, so
    /// that it can never arrive late.
    void cut(Trouble trouble);

    /// Asks what became of it up to now.
    const Receipt& look();
    [[nodiscard]] const Receipt& receipt() const;

    /// Everything was handed over: `then` runs once when the receipt is settled. A later call
    /// replaces it. Nothing runs any more once the consignment is gone, or the output is sent
    /// something else.
    void whenSettled(std::function<void()> then);

private:
    struct State;
    std::shared_ptr<State> state_;
};

}  // namespace sending
