#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace simulator {

/// Cuts a stream of MIDI bytes into messages. A message may arrive whole, in pieces or together
/// with others; what it means is for the sink to say.
///
/// Real-time bytes (F8 to FF) may stand anywhere and are passed over. Running status is understood.
class MessageAssembler {
public:
    class Sink {
    public:
        Sink() = default;
        virtual ~Sink() = default;

        /// A complete message, valid during the call. A SysEx begins with F0, ends with F7 and has
        /// only bytes below 0x80 between them.
        virtual void take(std::span<const std::uint8_t> message) = 0;
        /// Bytes that are no message: the reason in words, and how many bytes had come until then.
        virtual void refuse(std::string reason, std::size_t bytes) = 0;

    protected:
        Sink(const Sink&) = default;
        Sink& operator=(const Sink&) = default;
    };

    /// A SysEx that grows longer is refused; no more of it is kept.
    static constexpr std::size_t longestMessage = 4096;

    /// `sink` must outlive the assembler.
    explicit MessageAssembler(Sink& sink) : sink_(sink) {}

    void add(std::uint8_t byte);

private:
    enum class State {
        Between,  // nothing has begun
        Short,    // in a channel or system common message
        SysEx,
        Passing,  // what comes up to the next status byte has been refused already
    };

    void addStatus(std::uint8_t status);
    void addData(std::uint8_t data);
    void breakOff(std::uint8_t status);
    void beginShort(std::uint8_t status);
    void finishShortIfComplete();
    void end();

    Sink& sink_;
    State state_ = State::Between;
    std::vector<std::uint8_t> message_;
    std::uint8_t runningStatus_ = 0;  // 0: none
    bool restOfBrokenSysEx_ = false;  // data and an end that may follow belong to it
};

}  // namespace simulator
