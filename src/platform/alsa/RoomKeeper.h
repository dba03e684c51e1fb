#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>

#include "platform/alsa/FillLevel.h"

namespace platform::alsa {

/// The clock, and how to let time pass; another one in tests.
struct Time {
    using Point = std::chrono::steady_clock::time_point;
    using Duration = std::chrono::steady_clock::duration;

    std::function<Point()> now = [] { return std::chrono::steady_clock::now(); };
    std::function<void(Duration)> sleep;  ///< std::this_thread::sleep_for if there is none

    void pass(Duration duration) const;
};

/// Sees to it that a destination has room for a message before it is sent, because the kernel drops
/// what does not fit and reports success.
///
/// The level is read once and then counted down, for reading costs more than sending a short
/// message. Where there is none to be read, no more goes out than a MIDI cable carries.
class RoomKeeper {
public:
    using Level = std::function<std::optional<FillLevel>()>;

    /// Bytes a second of a MIDI cable.
    static constexpr std::size_t wireRate = 3125;
    /// So many bytes can be on their way to a destination whose level cannot be read.
    static constexpr std::size_t unseenBacklog = 2048;
    /// A destination that has taken nothing for so long takes nothing any more.
    static constexpr std::chrono::seconds longestStandstill{2};
    /// The longest that one message waits, also while the destination still takes a little.
    static constexpr std::chrono::seconds longestWait{5};

    explicit RoomKeeper(Level level, Time time = {});

    /// Waits until there is room for so many bytes (or cells), and counts them as sent. False when
    /// the destination has stopped taking data, or there is none for too long.
    [[nodiscard]] bool waitFor(std::size_t cost);

    /// Others send to the destination, too: what was read is true no longer.
    void forgetLevel() { credit_ = 0; }

    /// The level now.
    [[nodiscard]] std::optional<FillLevel> level() const { return level_(); }

private:
    /// Waits as long as the wire would need. False if that is too long.
    [[nodiscard]] bool waitForWire(std::size_t cost, Time::Point giveUp);

    Level level_;
    Time time_;
    std::size_t credit_ = 0;
    Time::Point wireIsFree_;  // when all that was sent unseen has gone out
};

}  // namespace platform::alsa
