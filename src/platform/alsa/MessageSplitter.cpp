#include "platform/alsa/MessageSplitter.h"

namespace platform::alsa {
namespace {

constexpr std::uint8_t sysExBegin = 0xF0;
constexpr std::uint8_t sysExEnd = 0xF7;

bool isRealTime(std::uint8_t byte) {
    return byte >= 0xF8;
}

/// Bytes of a message with this status; 0 if there is no such message.
std::size_t lengthOf(std::uint8_t status) {
    switch (status) {
        case 0xF1:  // quarter frame
        case 0xF3:  // song select
            return 2;
        case 0xF2:  // song position
            return 3;
        case 0xF6:  // tune request
            return 1;
        case 0xF4:
        case 0xF5:
        case sysExEnd:
            return 0;
        default:
            break;
    }
    const unsigned int kind = status & 0xF0U;
    return kind == 0xC0U || kind == 0xD0U ? 2 : 3;
}

}  // namespace

void MessageSplitter::addPacket(std::span<const std::uint8_t> bytes, const Take& take) {
    const bool isWhole = bytes.size() >= 2 && bytes.size() <= longestPiece &&
                         bytes.front() == sysExBegin && bytes.back() == sysExEnd;
    if (!isWhole) {
        add(bytes, take);
        return;
    }
    flush(take);  // a SysEx that is broken off goes out as far as it came
    reset();
    take(bytes);
}

void MessageSplitter::add(std::span<const std::uint8_t> bytes, const Take& take) {
    for (const std::uint8_t byte : bytes) {
        if (isRealTime(byte)) {
            const bool exists = byte != 0xF9 && byte != 0xFD;
            if (exists) {
                flush(take);  // what stands before it goes before it
                take({&byte, 1});
            }
        } else if (byte >= 0x80) {
            addStatus(byte, take);
        } else {
            addData(byte, take);
        }
    }
}

void MessageSplitter::flush(const Take& take) {
    if (inSysEx_ && !message_.empty()) {
        give(take);
    }
}

void MessageSplitter::reset() {
    message_.clear();
    length_ = 0;
    runningStatus_ = 0;
    inSysEx_ = false;
}

void MessageSplitter::addStatus(std::uint8_t status, const Take& take) {
    if (inSysEx_ && status == sysExEnd) {
        message_.push_back(status);
        inSysEx_ = false;
        give(take);
        return;
    }
    flush(take);  // a SysEx that is broken off goes out as far as it came
    reset();
    inSysEx_ = status == sysExBegin;
    length_ = inSysEx_ ? 0 : lengthOf(status);
    if (!inSysEx_ && length_ == 0) {
        return;
    }
    message_.push_back(status);
    runningStatus_ = status < sysExBegin ? status : std::uint8_t{0};
    if (length_ == 1) {
        give(take);
    }
}

void MessageSplitter::addData(std::uint8_t data, const Take& take) {
    if (inSysEx_) {
        message_.push_back(data);
        if (message_.size() == longestPiece) {
            give(take);
        }
        return;
    }
    if (length_ == 0) {
        if (runningStatus_ == 0) {
            return;
        }
        message_.assign(1, runningStatus_);
        length_ = lengthOf(runningStatus_);
    }
    message_.push_back(data);
    if (message_.size() == length_) {
        give(take);
    }
}

void MessageSplitter::give(const Take& take) {
    take(message_);
    message_.clear();
    length_ = 0;
}

}  // namespace platform::alsa
