#include "simulator/FirmwareReceiver.h"

#include <algorithm>
#include <array>

#include "texts/hexadecimal.h"

namespace simulator {
namespace {

using Report = FirmwareReceiver::Report;

constexpr std::array<std::uint8_t, 14> frameHeader = {0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55,
                                                      0x55, 0x55, 0x55, 0x1D, 0x03, 0x00, 0x49};
constexpr std::size_t commandPlace = 14;
constexpr std::size_t counterPlace = 15;
constexpr std::size_t commandChecksumPlace = 16;
constexpr std::size_t commandSize = 17;
constexpr std::size_t blockChecksumPlace = commandSize + FirmwareReceiver::blockSize;
constexpr std::size_t blockFrameSize = blockChecksumPlace + 1;
constexpr std::uint8_t writeCommand = 0x01;
constexpr std::uint8_t erasedByte = 0xFF;

/// Whether a frame can begin like this.
bool beginsAsFrame(std::span<const std::uint8_t> bytes) {
    const std::size_t known = std::min(bytes.size(), frameHeader.size());
    return std::equal(frameHeader.begin(), frameHeader.begin() + static_cast<std::ptrdiff_t>(known),
                      bytes.begin());
}

std::uint8_t sumOf(std::span<const std::uint8_t> bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum += byte;
    }
    return static_cast<std::uint8_t>(sum & 0xFF);
}

/// What is wrong with the checksum at the end of a frame; empty if nothing is.
std::string objectionToChecksum(std::span<const std::uint8_t> frame) {
    const std::uint8_t sum = sumOf(frame.first(frame.size() - 1));
    return sum == frame.back() ? std::string()
                               : "the checksum is " + texts::hexadecimal(frame.back()) +
                                     ", the bytes before it sum up to " + texts::hexadecimal(sum);
}

std::string blocksInWords(std::size_t blocks) {
    return std::to_string(blocks) + (blocks == 1 ? " block" : " blocks");
}

}  // namespace

void FirmwareReceiver::begin() {
    frame_.clear();
    passing_ = false;
    connected_ = false;
    mayWrite_ = false;
}

std::optional<Report> FirmwareReceiver::take(std::uint8_t byte) {
    frame_.push_back(byte);
    if (frame_.size() <= frameHeader.size()) {
        return beginsAsFrame(frame_) ? std::nullopt : beginAnew();
    }
    const bool isBlock = frame_[commandPlace] == writeCommand;
    if (frame_.size() < (isBlock ? blockFrameSize : commandSize)) {
        return std::nullopt;
    }
    passing_ = false;
    std::optional<Report> report = isBlock ? write() : judgeCommand();
    frame_.clear();
    return report;
}

/// The bytes so far begin no frame; perhaps the later ones of them do.
std::optional<Report> FirmwareReceiver::beginAnew() {
    const std::size_t bytes = frame_.size();
    const std::string text =
        "Bytes " + texts::hexadecimal(std::span(frame_).last(std::min<std::size_t>(bytes, 4))) +
        " begin no frame: one begins with ten times 55 and 1D 03 00 49";
    do {
        frame_.erase(frame_.begin());
    } while (!beginsAsFrame(frame_));
    if (passing_) {
        return std::nullopt;
    }
    passing_ = true;
    return Report{false, text, bytes};
}

std::optional<Report> FirmwareReceiver::judgeCommand() {
    const std::string wrong = objectionToChecksum(frame_);
    if (!wrong.empty()) {
        return Report{false, "Command refused: " + wrong, commandSize};
    }
    const std::uint8_t first = frame_[commandPlace];
    const std::uint8_t second = frame_[counterPlace];
    if (first == 0x7F && second == 0x00) {
        return connect();
    }
    if (first == 0x00 && second == 0x70) {
        return erase();
    }
    if (first == 0x02 && second == 0x00) {
        return reset();
    }
    return Report{
        false,
        "There is no command " +
            texts::hexadecimal(std::span<const std::uint8_t>(frame_).subspan(commandPlace, 2)),
        commandSize};
}

Report FirmwareReceiver::connect() {
    connected_ = true;
    return {true, "Connected", commandSize};
}

Report FirmwareReceiver::erase() {
    if (!connected_) {
        return {false, "Erase refused: nobody has connected", commandSize};
    }
    std::fill(flash_.begin(), flash_.end(), erasedByte);
    blocks_ = 0;
    blocksRefused_ = 0;
    erased_ = true;
    mayWrite_ = true;
    return {true, "Flash erased", commandSize};
}

Report FirmwareReceiver::reset() {
    if (!connected_) {
        return {false, "Reset refused: nobody has connected", commandSize};
    }
    std::string text = mayWrite_ ? "Restarted with " + blocksInWords(blocks_) + " of firmware"
                                 : std::string("Restarted with the firmware it had");
    if (blocksRefused_ > 0) {
        text += ", " + std::to_string(blocksRefused_) + " refused";
    }
    begin();
    return {true, std::move(text), commandSize, true};
}

Report FirmwareReceiver::write() {
    const std::string counter = std::to_string(frame_[counterPlace]);
    const std::string wrong = objectionToBlock();
    if (!wrong.empty()) {
        ++blocksRefused_;
        return {false, "Block " + counter + " refused: " + wrong, blockFrameSize};
    }
    std::copy_n(frame_.begin() + commandSize, blockSize,
                flash_.begin() + static_cast<std::ptrdiff_t>(blocks_ * blockSize));
    ++blocks_;
    return {true, "Block " + counter + " written", blockFrameSize};
}

std::string FirmwareReceiver::objectionToBlock() const {
    if (std::string wrong = objectionToChecksum(frame_); !wrong.empty()) {
        return wrong;
    }
    if (frame_[commandChecksumPlace] != 0) {
        return "byte 16 is " + texts::hexadecimal(frame_[commandChecksumPlace]) +
               ", in a block it is 0x00";
    }
    if (!mayWrite_) {
        return "the flash was not erased";
    }
    if (blocks_ == flashBlocks) {
        return "the flash has space for " + blocksInWords(flashBlocks);
    }
    const std::size_t expected = blocks_ % 256;
    if (frame_[counterPlace] != expected) {
        return "block " + std::to_string(expected) + " was to come";
    }
    return {};
}

}  // namespace simulator
