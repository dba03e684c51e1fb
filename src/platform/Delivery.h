#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace platform {

/// What is known of the bytes that were handed over to a destination since `beginDelivery`. A send
/// call that succeeds says little: the bytes then wait in this computer, and are lost without a
/// word when the device goes away or stops taking them.
struct Delivery {
    enum class Trouble {
        None,
        WentAway,      ///< the destination is no longer there, or was not from the start
        TakesNothing,  ///< it is there and has taken nothing for too long
        InUse,         ///< another program keeps it to itself
    };

    std::uint64_t handedOver = 0;  ///< bytes given to MIDISend, also those it could not take
    /// Of these, from the first one on, the bytes that have left this computer as far as it can
    /// know. It never falls. Once there is trouble it does not grow any more.
    std::uint64_t left = 0;
    /// Why the rest will never leave.
    Trouble trouble = Trouble::None;
    std::string program;  ///< InUse: the program's name; empty where it is not known
    /// While bytes wait: how long the destination has taken none of them.
    std::chrono::milliseconds standstill{0};
    /// Nothing will change any more: there is trouble, or everything has left and the destination
    /// was still there for a while afterwards (longer than the system takes to notice that a device
    /// was pulled out).
    bool isSettled = true;

    bool operator==(const Delivery&) const = default;
};

}  // namespace platform
