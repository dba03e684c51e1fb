#include "kernel/sequencerClients.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "kernel/systemFiles.h"

namespace kernel {

namespace {

/// The addresses in "20:0, 128:1[r:1]", where what stands in brackets is how the two are connected.
std::vector<std::string> addressesIn(const std::string& text) {
    static const std::regex address("([0-9]+:[0-9]+)(\\[[^\\]]*\\])?");
    std::vector<std::string> addresses;
    for (std::sregex_iterator found(text.begin(), text.end(), address), end; found != end;
         ++found) {
        addresses.push_back((*found)[1]);
    }
    return addresses;
}

}  // namespace

std::vector<SequencerClient> sequencerClientsIn(const std::string& list) {
    static const std::regex client("Client +([0-9]+) : \"(.*)\" \\[([A-Za-z]+).*");
    static const std::regex port(" +Port +([0-9]+) : \"(.*)\" \\(.*");
    static const std::regex connections(" +Connect(ing To|ed From): (.*)");
    std::vector<SequencerClient> clients;
    std::istringstream lines(list);
    std::smatch part;
    for (std::string line; std::getline(lines, line);) {
        if (std::regex_match(line, part, client)) {
            clients.push_back({std::stoi(part[1]), part[2], part[3] == "Kernel", {}});
        } else if (!clients.empty() && std::regex_match(line, part, port)) {
            clients.back().ports.push_back({std::stoi(part[1]), part[2], {}, {}});
        } else if (!clients.empty() && !clients.back().ports.empty() &&
                   std::regex_match(line, part, connections)) {
            SequencerPort& connected = clients.back().ports.back();
            (part[1] == "ing To" ? connected.sendsTo : connected.takesFrom) = addressesIn(part[2]);
        }
    }
    return clients;
}

std::vector<SequencerClient> sequencerClients() {
    return sequencerClientsIn(textOf("/proc/asound/seq/clients"));
}

std::vector<SequencerClient> sequencerClientsNamed(const std::string& name) {
    std::vector<SequencerClient> clients = sequencerClients();
    std::erase_if(clients, [&name](const SequencerClient& each) { return each.name != name; });
    return clients;
}

}  // namespace kernel
