#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

namespace platform::alsa {

/// Cuts the bytes that go to one endpoint into what the sequencer takes as one event: a message, or
/// a piece of a SysEx that is too long for one event or not complete yet.
///
/// Nothing is changed on the way: a note-on with velocity 0 stays one. Real-time bytes come out
/// where they stand, also within a SysEx. Running status is written out. Bytes that belong to no
/// message are left out.
class MessageSplitter {
public:
    using Take = std::function<void(std::span<const std::uint8_t>)>;

    /// The longest piece of a SysEx in bytes: half of what the kernel holds for a device, and few
    /// enough for a program with the usual pool.
    static constexpr std::size_t longestPiece = 2048;

    /// What stands in a packet of its own from F0 to F7 is one message, whatever is between; all
    /// else is taken as `add` does.
    void addPacket(std::span<const std::uint8_t> bytes, const Take& take);

    /// `take` gets each message; the bytes are valid during the call.
    void add(std::span<const std::uint8_t> bytes, const Take& take);

    /// The sender has nothing more for now: what there is of a SysEx goes out, and it goes on with
    /// the next bytes. Half a channel message waits for its other half.
    void flush(const Take& take);

    /// Forgets what has begun.
    void reset();

private:
    void addStatus(std::uint8_t status, const Take& take);
    void addData(std::uint8_t data, const Take& take);
    void give(const Take& take);

    std::vector<std::uint8_t> message_;
    std::size_t length_ = 0;          // bytes of the short message under way; 0: none
    std::uint8_t runningStatus_ = 0;  // 0: none
    bool inSysEx_ = false;
};

}  // namespace platform::alsa
