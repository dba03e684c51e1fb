#pragma once

#include <string>
#include <vector>

// What the sequencer itself says about its clients, read from /proc/asound/seq/clients: independent
// of the library that the program under test uses.

namespace kernel {

struct SequencerPort {
    int number = 0;
    std::string name;
    /// Addresses as "20:0", of the ports this one sends to, and of those it takes in from.
    std::vector<std::string> sendsTo;
    std::vector<std::string> takesFrom;
};

struct SequencerClient {
    int number = 0;
    std::string name;
    bool isKernel = false;
    std::vector<SequencerPort> ports;
};

/// The clients in the list's text, in its order: by number.
[[nodiscard]] std::vector<SequencerClient> sequencerClientsIn(const std::string& list);

/// The clients there are now. Their pools are not read.
[[nodiscard]] std::vector<SequencerClient> sequencerClients();

/// Those of them that have the name.
[[nodiscard]] std::vector<SequencerClient> sequencerClientsNamed(const std::string& name);

}  // namespace kernel
