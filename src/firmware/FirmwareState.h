#pragma once

// What the firmware window knows beyond the life of one window: opened again it goes on where it
// was. The composition root makes it.

#include <cstdint>
#include <optional>
#include <string>

#include "devices/seldev2.h"
#include "sending/Consignment.h"
#include "sending/Uploader.h"

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

struct FirmwareState : sending::UploadData {
    explicit FirmwareState(midi::ZQMIDIProcess& process) : connectionCheck(process) {}

    std::uint32_t midi_program_hex_len = 0;  ///< bytes the file read last has put there
    std::uint8_t m_bin_file = 0;             ///< 1: a file was chosen, accepted or not
    std::uint8_t a = 0;                      ///< the confirmation window's answer

    devices::seldev2Choice connectionCheck;

    // What the window tells a person
    ChosenFile chosenFile;                       ///< the last one
    ChosenFile heldFile;                         ///< the one whose bytes are in the buffer
    int lastStepDone = 0;                        ///< 1 to 5; 0 at first
    std::optional<sending::Consignment> upload;  ///< the last one
};

}  // namespace firmware
