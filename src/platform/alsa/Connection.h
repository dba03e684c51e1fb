#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/MidiService.h"
#include "platform/alsa/Account.h"
#include "platform/alsa/MessageSplitter.h"
#include "platform/alsa/Sender.h"
#include "platform/alsa/SpaceGauge.h"
#include "platform/alsa/enumeration.h"

namespace platform::alsa {

/// A destination: its handle, which no other ever has, and where it is.
struct Destination {
    MIDIEndpointRef handle = 0;
    PortDescription port;

    [[nodiscard]] bool isProgram() const { return !port.isOfDevice; }
};

/// The way to one destination: the subscription, while there is one, what waits for it, and what is
/// known of what was sent.
///
///     Closed ──▶ Opening ──▶ Open ──▶ Closing ──▶ Closed
///
/// A connection with trouble is cut: nothing goes there any more, what waits is thrown away, the
/// subscription too. The main thread opens it again, once it has taken in what has changed.
struct Connection {
    enum class State { Closed, Opening, Open, Closing };

    Connection(Destination destination, Time::Point now)
        : to(std::move(destination)), account(now), lastUsed(now) {}

    Destination to;
    MessageSplitter splitter;
    std::deque<std::vector<std::uint8_t>> waiting;  ///< messages that the kernel has not accepted
    std::size_t bytesWaiting = 0;
    Account account;
    std::optional<Delivery> lastDelivery;  ///< of an account with trouble, when it is open again
    Time::Point lastUsed;

    std::unique_ptr<Sender> sender;   ///< Open: the subscription
    std::optional<SpaceGauge> space;  ///< Open
    std::size_t freeWhenCut = 0;      ///< of a program that reads nothing

    State state = State::Closed;
    Delivery::Trouble cutBy = Delivery::Trouble::None;
    bool hasGone = false;       ///< left the list, for good
    bool isAskedFor = false;    ///< somebody wants to know what became of it
    bool isExclusive = false;   ///< Open: other programs are kept out
    bool levelWasSeen = false;  ///< Open: a device that shows none any more has gone

    [[nodiscard]] bool isCut() const { return cutBy != Delivery::Trouble::None || hasGone; }
    /// Not there, or takes nothing. Another program in the way is no such thing.
    [[nodiscard]] bool isOffline() const {
        return hasGone || (isCut() && cutBy != Delivery::Trouble::InUse);
    }
    /// A program that does not read keeps what it has; whether it reads again can be seen there.
    [[nodiscard]] bool isToBeSeenReadingAgain() const {
        return to.isProgram() && cutBy == Delivery::Trouble::TakesNothing && !hasGone;
    }
};

}  // namespace platform::alsa
