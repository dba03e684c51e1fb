// The upload: connect, erase, write block by block, reset. Nothing is read back; a controller that
// goes offline meanwhile misses the rest, and nobody notices.

#include "firmware/firm.h"
#include "firmware/message.h"

namespace firmware {

void firm::upLoad() {
    if (!mayUpload()) {
        return;
    }
    message confirmation(desktop_, state_.a, confirmationOf(state_, uploadOutput()));
    desktop_.runModalForWindow(confirmation);
    if (state_.a == 0) {
        return;
    }
    if (devices_.midi_device_open != 0 && state_.m_bin_file != 0) {
        transferImage();
    }
    devices_.midi_device_open = 0;
    state_.m_bin_file = 0;
    alert("Upload", "Upload completed.");
    progress.setDoubleValue(0);
    step5.setStringValue("");
    stepDone(5);
}

bool firm::mayUpload() {
    if (devices_.midi_device_open == 0) {
        alert("Warning", state_.m_bin_file == 1 ? "Please select the MIDI Device."
                                                : "Please  select the MIDI Device and  open file.");
        return false;
    }
    if (state_.m_bin_file == 0) {
        alert("Warning", "Please open file .");
        return false;
    }
    return true;
}

void firm::transferImage() {
    state_.eraser_bit = 0;
    state_.program_bit = 0;
    state_.rest_bit = 0;
    state_.connet_bit = 0;
    state_.file_len_count = 0;
    sendConnect();
    sendErase();
    progress.setDoubleValue(0);
    progress.setMinValue(0);
    const std::size_t mostBlocks = state_.len / imageBytesInABlock + 1;
    progress.setMaxValue(static_cast<double>(mostBlocks));
    showBlocksSent();
    while (state_.file_len_count < state_.len) {
        sendNextBlock();
    }
    sendReset();
}

void firm::sendConnect() {
    sendFrame(state_.midi_connet, connectPause);
    state_.connet_bit = 0;
}

void firm::sendErase() {
    sendFrame(state_.midi_eraser, erasePause);
    state_.eraser_bit = 0;
    state_.file_len_count = 0;
    state_.midi_write[blockCounterOffset] = 0;
}

void firm::sendNextBlock() {
    WriteBlock& block = state_.midi_program_hex_layer;
    block = writeBlock(state_.midi_write, state_.midi_program_hex, state_.file_len_count);
    ++state_.midi_write[blockCounterOffset];
    state_.file_len_count += imageBytesInABlock;
    sendBytes(block, writePause);
    block[blockChecksumOffset] = 0;
    desktop_.sleepForTimeInterval(afterBlock);
    state_.program_bit = 0;
    progress.incrementBy(1);
    showBlocksSent();
}

void firm::sendReset() {
    sendFrame(state_.midi_rest, noPause);
    desktop_.sleepForTimeInterval(afterReset);
    state_.rest_bit = 0;
}

void firm::sendFrame(Frame& frame, Seconds pause) {
    frame[frameChecksumOffset] = checksum(std::span(frame).first(frameChecksumOffset));
    sendBytes(frame, pause);
    frame[frameChecksumOffset] = 0;
    desktop_.sleepForTimeInterval(afterFrame);
}

void firm::sendBytes(std::span<const std::uint8_t> bytes, Seconds pause) {
    for (const std::uint8_t byte : bytes) {
        sendByte(byte, pause);
    }
}

void firm::sendByte(std::uint8_t byte, Seconds pause) {
    midi::ZQMIDIRealDestination* output = devices_.OutDevice();
    if (output == nullptr || !output->isOnline()) {
        return;
    }
    state_.midi_temp = nibbleMessage(byte);
    output->addSender(this);
    {
        const platform::MIDIPacketListPtr list = platform::makeOnePacketList(state_.midi_temp);
        output->processMIDIPacketList(*list, this);
        if (pause > noPause) {
            desktop_.sleepForTimeInterval(pause);
        }
    }
    output->removeSender(this);
}

void firm::showBlocksSent() {
    const std::uint64_t blocks = blocksFor(state_.len);
    const std::uint64_t sent = state_.file_len_count / imageBytesInABlock;
    const std::uint64_t percent = blocks == 0 ? 100 : sent * 100 / blocks;
    const Seconds left = timeOfUpload(blocks - sent) - timeOfUpload(0);
    step5.setStringValue(std::to_string(percent) + " %, block " + inWords(sent) + " of " +
                         inWords(blocks) + ", " + inWords(left) + " left");
    progress.setHidden(false);
    progress.display();
}

}  // namespace firmware
