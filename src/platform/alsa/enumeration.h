#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/alsa/Sequencer.h"

namespace platform::alsa {

/// A source gives MIDI to this program, a destination takes it.
enum class Direction { Source, Destination };

/// One direction of a port, as the sequencer describes it.
struct PortDescription {
    Address address;
    Direction direction = Direction::Source;
    std::string clientName;
    std::string portName;
    bool isOfDevice = false;               ///< the kernel's own port: the client is a device
    bool isHardware = false;               ///< behind it is a wire, and a raw device of the card
    bool isBus = false;                    ///< hands on what programs send, to programs
    int card = -1;                         ///< the sound card, from 0; -1 for none
    std::optional<std::int32_t> ownerPID;  ///< of a program's port: its process

    bool operator==(const PortDescription&) const = default;
};

/// What other programs may read from or write to, by address: without the system's own client
/// (timer and announcements), what asks not to be exported, and the client `leftOut`. A port that
/// can do both is there twice.
[[nodiscard]] std::vector<PortDescription> portsOf(snd_seq_t& sequencer, int leftOut);

/// Names of the programs of other processes that are connected to a port: those that send to a
/// destination, or take from a source. One a program.
[[nodiscard]] std::vector<std::string> programsConnectedTo(snd_seq_t& sequencer,
                                                           const Address& port,
                                                           Direction direction);

}  // namespace platform::alsa
