#pragma once

// What the firmware window knows beyond the life of one window: opened again it goes on where it
// was. The composition root makes it.

#include <cstdint>
#include <string>

#include "devices/seldev2.h"
#include "firmware/frames.h"

namespace firmware {

/// A file a person has chosen, and what came of it.
struct ChosenFile {
    enum class Verdict { None, Accepted, WrongName, TooLarge };

    std::string name;  ///< without its folder
    std::uint64_t size = 0;
    Verdict verdict = Verdict::None;

    [[nodiscard]] bool isRefused() const {
        return verdict == Verdict::WrongName || verdict == Verdict::TooLarge;
    }
};

struct FirmwareState {
    explicit FirmwareState(midi::ZQMIDIProcess& process) : connectionCheck(process) {}

    // The image
    ImageBuffer midi_program_hex{};          ///< what a smaller file leaves stays from a larger one
    std::uint32_t midi_program_hex_len = 0;  ///< bytes the file read last has put there
    std::uint32_t len = 0;        ///< size of the file measured last, accepted or not: what is sent
    std::uint8_t m_bin_file = 0;  ///< 1: a file was chosen, accepted or not

    // The frames; their checksums are 0 but while they are sent
    Frame midi_connet = connectFrame;
    Frame midi_eraser = eraseFrame;
    Frame midi_write = writeFrame;
    Frame midi_rest = resetFrame;
    WriteBlock midi_program_hex_layer{};
    NibbleMessage midi_temp = nibbleMessage(0);

    // The upload
    std::uint8_t connet_bit = 0;
    std::uint8_t eraser_bit = 0;
    std::uint8_t program_bit = 0;
    std::uint8_t rest_bit = 0;
    /// Bytes of the image sent. Wider than `len`: counted in whole blocks it passes it.
    std::uint64_t file_len_count = 0;
    std::uint8_t a = 0;  ///< the confirmation window's answer

    devices::seldev2Choice connectionCheck;

    // What the window tells a person
    ChosenFile chosenFile;  ///< the last one
    ChosenFile heldFile;    ///< the one whose bytes are in the buffer
    int lastStepDone = 0;   ///< 1 to 5; 0 at first
};

}  // namespace firmware
