#include "simulator/MessageAssembler.h"

#include <utility>

#include "texts/hexadecimal.h"

namespace simulator {
namespace {

constexpr std::uint8_t sysExBegin = 0xF0;
constexpr std::uint8_t sysExEnd = 0xF7;

bool isStatus(std::uint8_t byte) {
    return byte >= 0x80;
}
bool isRealTime(std::uint8_t byte) {
    return byte >= 0xF8;
}
bool isChannelStatus(std::uint8_t status) {
    return status >= 0x80 && status < 0xF0;
}

/// Bytes of a channel or system common message, its status included.
std::size_t lengthOf(std::uint8_t status) {
    if (isChannelStatus(status)) {
        const bool oneDataByte = (status & 0xF0) == 0xC0 || (status & 0xF0) == 0xD0;
        return oneDataByte ? 2 : 3;
    }
    switch (status) {
        case 0xF1:  // time code
        case 0xF3:  // song select
            return 2;
        case 0xF2:  // song position
            return 3;
        default:
            return 1;
    }
}

}  // namespace

void MessageAssembler::add(std::uint8_t byte) {
    if (isRealTime(byte)) {
        return;
    }
    if (isStatus(byte)) {
        addStatus(byte);
    } else {
        addData(byte);
    }
}

void MessageAssembler::addStatus(std::uint8_t status) {
    if (status == sysExEnd) {
        end();
        return;
    }
    if (state_ == State::SysEx || state_ == State::Short) {
        breakOff(status);
    }
    if (status == sysExBegin) {
        restOfBrokenSysEx_ = false;
        runningStatus_ = 0;
        message_.assign(1, status);
        state_ = State::SysEx;
    } else {
        beginShort(status);
    }
}

void MessageAssembler::addData(std::uint8_t data) {
    switch (state_) {
        case State::Passing:
            return;
        case State::Between:
            if (runningStatus_ == 0) {
                if (!restOfBrokenSysEx_) {
                    sink_.refuse("Byte " + texts::hexadecimal(data) + " stands outside any message",
                                 1);
                }
                state_ = State::Passing;
                return;
            }
            message_.assign({runningStatus_, data});
            state_ = State::Short;
            finishShortIfComplete();
            return;
        case State::Short:
            message_.push_back(data);
            finishShortIfComplete();
            return;
        case State::SysEx:
            message_.push_back(data);
            if (message_.size() >= longestMessage) {
                const std::size_t bytes = message_.size();
                message_ = {};
                restOfBrokenSysEx_ = true;
                state_ = State::Passing;
                sink_.refuse("SysEx without an end after " + std::to_string(bytes) + " bytes",
                             bytes);
            }
            return;
    }
}

void MessageAssembler::breakOff(std::uint8_t status) {
    const std::size_t bytes = message_.size();
    const std::string place = "Byte " + std::to_string(bytes) + " is " + texts::hexadecimal(status);
    const bool sysEx = state_ == State::SysEx;
    message_ = {};
    state_ = State::Between;
    if (!sysEx) {
        sink_.refuse(place + ": the message was not complete", bytes);
    } else if (status == sysExBegin) {
        sink_.refuse(place + ": a new SysEx begins before this one has ended", bytes);
    } else {
        restOfBrokenSysEx_ = true;
        sink_.refuse(place + ": inside a SysEx every byte is below 0x80", bytes);
    }
}

void MessageAssembler::beginShort(std::uint8_t status) {
    // A status byte in a broken SysEx may be a damaged data byte: what follows it is not taken for
    // a row of channel messages.
    runningStatus_ = isChannelStatus(status) && !restOfBrokenSysEx_ ? status : std::uint8_t{0};
    message_.assign(1, status);
    state_ = State::Short;
    finishShortIfComplete();
}

void MessageAssembler::finishShortIfComplete() {
    if (message_.size() < lengthOf(message_.front())) {
        return;
    }
    state_ = State::Between;
    const std::vector<std::uint8_t> message = std::exchange(message_, {});
    sink_.take(message);
}

void MessageAssembler::end() {
    const State state = std::exchange(state_, State::Between);
    const bool expected = std::exchange(restOfBrokenSysEx_, false);
    std::vector<std::uint8_t> message = std::exchange(message_, {});
    runningStatus_ = 0;
    if (state == State::SysEx) {
        message.push_back(sysExEnd);
        sink_.take(message);
        return;
    }
    if (state == State::Short) {
        sink_.refuse("Byte " + std::to_string(message.size()) + " is " +
                         texts::hexadecimal(sysExEnd) + ": the message was not complete",
                     message.size());
    } else if (!expected) {
        sink_.refuse("Byte " + texts::hexadecimal(sysExEnd) + " ends a SysEx that has not begun",
                     1);
    }
}

}  // namespace simulator
