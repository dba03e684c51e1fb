#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>

#include "platform/Delivery.h"
#include "platform/alsa/Time.h"

namespace platform::alsa {

/// What is known of the bytes that one destination was handed, from a first one on. They wait in
/// this program, then in the kernel, and leave in the order in which they came; it is told of each
/// step, and looks at the destination from time to time.
///
///     handed over ──▶ waiting here ──▶ accepted ──▶ waiting in the kernel ──▶ left
///
/// The kernel tells how many bytes wait, whosever they are: those of another program that sends to
/// the same device count as ours until enough have been taken.
class Account {
public:
    /// A device that was pulled out is known to have gone after so long. A hub asks its ports four
    /// times a second.
    static constexpr std::chrono::milliseconds settleTime{500};
    /// A destination that has taken nothing for so long, while something waits, takes nothing any
    /// more; nor does one that has not made space for a message for so long.
    static constexpr std::chrono::seconds longestStandstill{5};
    /// By then all that was handed over has left, at the pace of the slowest wire, or never will.
    static constexpr std::chrono::seconds longestSettling{10};

    /// `before` bytes, that do not count, are still to be accepted.
    explicit Account(Time::Point now, std::size_t before = 0)
        : before_(before), lastTaken_(now), lastAccepted_(now), lastHandedOver_(now) {}

    void handOver(std::size_t bytes, Time::Point now);
    /// The kernel has taken one more message, or piece of a SysEx.
    void accept(std::span<const std::uint8_t> message, Time::Point now);
    /// Nothing waits in this program.
    void acceptAll() { accepted_ = handedOver_; }

    /// The destination is there, and so many bytes wait in the kernel.
    void see(std::size_t waiting, Time::Point now);
    /// Time passes. May find that the destination takes nothing, or that all is settled.
    void pass(Time::Point now);

    /// Nothing more will leave, and why. Changes nothing once the account is settled.
    void end(Delivery::Trouble trouble, Time::Point now, std::string program = {});

    [[nodiscard]] Delivery at(Time::Point now) const;
    [[nodiscard]] Delivery::Trouble trouble() const { return trouble_; }
    [[nodiscard]] bool isSettled() const {
        return trouble_ != Delivery::Trouble::None || handedOver_ == 0 || stayed_;
    }
    [[nodiscard]] bool hasAllLeft() const { return left_ == handedOver_; }

private:
    std::size_t before_;
    std::uint64_t handedOver_ = 0;
    std::uint64_t accepted_ = 0;
    std::uint64_t left_ = 0;
    Delivery::Trouble trouble_ = Delivery::Trouble::None;
    std::string program_;
    bool stayed_ = false;  // after all had left

    /// The kernel leaves out a status byte that is the one before.
    struct Piece {
        std::size_t bytes;
        std::size_t bytesInKernel;
    };
    void forgetWhatLeft();
    [[nodiscard]] std::uint64_t bytesLeft() const;

    std::deque<Piece> pieces_;  // accepted, and perhaps waiting in the kernel
    std::size_t bytesOfPieces_ = 0;
    std::size_t bytesInKernel_ = 0;
    std::uint8_t lastStatus_ = 0;
    std::size_t waiting_ = 0;        // in the kernel, when it was last seen
    std::size_t waitingOfOurs_ = 0;  // of these, at most
    std::uint64_t acceptedWhenSeen_ = 0;
    Time::Point lastTaken_;     // or nothing waited
    Time::Point lastAccepted_;  // or nothing waited in this program
    Time::Point lastHandedOver_;
    std::optional<Time::Point> allLeft_;  // when that was first seen
    Time::Duration standstillAtEnd_{0};
};

}  // namespace platform::alsa
