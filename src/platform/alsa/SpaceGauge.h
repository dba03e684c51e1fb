#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "platform/alsa/FillLevel.h"
#include "platform/alsa/Time.h"

namespace platform::alsa {

/// Tells whether a destination has space for a message, because the kernel drops what does not fit
/// and reports success.
///
/// The level is read once and then counted down, for reading costs more than sending a short
/// message. Where there is none to be read, no more goes out than a MIDI cable carries.
class SpaceGauge {
public:
    using Level = std::function<std::optional<FillLevel>()>;

    /// Bytes a second of a MIDI cable.
    static constexpr std::size_t wireRate = 3125;
    /// So many bytes can be on their way to a destination whose level cannot be read.
    static constexpr std::size_t unseenBacklog = 2048;

    explicit SpaceGauge(Level level, Time time = {});

    /// Whether there is space for so many bytes (or cells) now; they are counted as sent then.
    [[nodiscard]] bool take(std::size_t cost);

    /// Others send to the destination, too: what was read is true no longer.
    void forgetLevel() { credit_ = 0; }

    /// The level now.
    [[nodiscard]] std::optional<FillLevel> level() const { return level_(); }

private:
    [[nodiscard]] bool takeFromWire(std::size_t cost);

    Level level_;
    Time time_;
    std::size_t credit_ = 0;
    Time::Point wireIsFree_;  // when all that was sent unseen has gone out
};

}  // namespace platform::alsa
