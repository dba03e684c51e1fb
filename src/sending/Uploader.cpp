#include "sending/Uploader.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace sending {

namespace {

constexpr std::uint64_t messageSize = std::tuple_size_v<NibbleMessage>;
constexpr std::uint64_t bytesOfFrame = frameSize * messageSize;
constexpr std::uint64_t bytesOfBlock = writeBlockSize * messageSize;
constexpr std::uint64_t bytesBeforeBlocks = 2 * bytesOfFrame;

}  // namespace

std::uint64_t bytesOfUpload(std::uint64_t blocks) {
    return bytesBeforeBlocks + blocks * bytesOfBlock + bytesOfFrame;
}

UploadBlocks blocksOf(const Receipt& receipt) {
    const std::uint64_t all = (receipt.bytes - bytesOfUpload(0)) / bytesOfBlock;
    const auto blocksIn = [all](std::uint64_t bytes) {
        return bytes < bytesBeforeBlocks
                   ? 0
                   : std::min(all, (bytes - bytesBeforeBlocks) / bytesOfBlock);
    };
    return {all, blocksIn(receipt.handedOver), blocksIn(receipt.left),
            receipt.left >= bytesBeforeBlocks};
}

/// One upload under way.
class Uploader::Run {
public:
    explicit Run(Uploader& uploader)
        : data_(uploader.data_),
          way_(uploader.way_),
          onEvent_(uploader.onEvent_),
          upload_(way_.service, bytesOfUpload(blocksFor(data_.len)), way_.output()) {}

    Consignment run();

private:
    void sendConnect();
    void sendErase();
    void sendNextBlock();
    void sendReset();
    void sendFrame(Frame& frame, Seconds pause);
    void sendBytes(std::span<const std::uint8_t> bytes, Seconds pause);
    void sendByte(std::uint8_t byte, Seconds pause);
    void look();
    void cut(Trouble trouble);
    void tell(Event event) {
        if (onEvent_) {
            onEvent_(event, upload_.receipt());
        }
    }
    [[nodiscard]] bool isCut() const { return upload_.receipt().trouble != Trouble::None; }

    UploadData& data_;
    const Way& way_;
    const OnEvent& onEvent_;
    Consignment upload_;
    std::chrono::seconds standstill_{0};  // told last
};

Consignment Uploader::Run::run() {
    data_.eraser_bit = 0;
    data_.program_bit = 0;
    data_.rest_bit = 0;
    data_.connet_bit = 0;
    data_.file_len_count = 0;
    if (isCut()) {
        tell(Event::Cut);
    }
    sendConnect();
    sendErase();
    tell(Event::BlocksBegin);
    while (data_.file_len_count < data_.len) {
        sendNextBlock();
    }
    sendReset();
    return upload_;
}

void Uploader::Run::sendConnect() {
    sendFrame(data_.midi_connet, connectPause);
    data_.connet_bit = 0;
}

void Uploader::Run::sendErase() {
    sendFrame(data_.midi_eraser, erasePause);
    data_.eraser_bit = 0;
    data_.file_len_count = 0;
    data_.midi_write[blockCounterOffset] = 0;
}

void Uploader::Run::sendNextBlock() {
    WriteBlock& block = data_.midi_program_hex_layer;
    block = writeBlock(data_.midi_write, data_.midi_program_hex, data_.file_len_count);
    ++data_.midi_write[blockCounterOffset];
    data_.file_len_count += imageBytesInABlock;
    sendBytes(block, writePause);
    block[blockChecksumOffset] = 0;
    way_.pause(afterBlock);
    data_.program_bit = 0;
    look();
    if (!isCut()) {
        tell(Event::BlockDone);
    }
}

void Uploader::Run::sendReset() {
    sendFrame(data_.midi_rest, noPause);
    way_.pause(afterReset);
    data_.rest_bit = 0;
    look();
}

void Uploader::Run::sendFrame(Frame& frame, Seconds pause) {
    frame[frameChecksumOffset] = checksum(std::span(frame).first(frameChecksumOffset));
    sendBytes(frame, pause);
    frame[frameChecksumOffset] = 0;
    way_.pause(afterFrame);
    look();
}

void Uploader::Run::sendBytes(std::span<const std::uint8_t> bytes, Seconds pause) {
    for (const std::uint8_t byte : bytes) {
        sendByte(byte, pause);
    }
}

void Uploader::Run::sendByte(std::uint8_t byte, Seconds pause) {
    if (isCut()) {
        return;
    }
    midi::ZQMIDIRealDestination* const output = way_.output();
    if (!upload_.goesTo(output)) {
        cut(Trouble::WentAway);
        return;
    }
    data_.midi_temp = nibbleMessage(byte);
    output->addSender(this);
    {
        const platform::MIDIPacketListPtr list = platform::makeOnePacketList(data_.midi_temp);
        upload_.handOver(output, *list, this);
        if (pause > noPause) {
            way_.pause(pause);
        }
    }
    output->removeSender(this);
    look();
}

/// What was handed over may be known to be lost only later, or to stand still.
void Uploader::Run::look() {
    if (isCut()) {
        return;
    }
    const Receipt& receipt = upload_.look();
    if (receipt.trouble != Trouble::None) {
        cut(receipt.trouble);
        return;
    }
    const auto seconds = std::chrono::floor<std::chrono::seconds>(receipt.standstill);
    const auto now = seconds < standstillWorthTelling ? std::chrono::seconds{0} : seconds;
    if (now != standstill_) {
        standstill_ = now;
        tell(Event::Standstill);
    }
}

void Uploader::Run::cut(Trouble trouble) {
    upload_.cut(trouble);
    tell(Event::Cut);
}

Uploader::Uploader(UploadData& data, Way way, OnEvent onEvent)
    : data_(data), way_(std::move(way)), onEvent_(std::move(onEvent)) {}

Consignment Uploader::upload() {
    return Run(*this).run();
}

}  // namespace sending
