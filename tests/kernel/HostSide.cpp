#include "kernel/HostSide.h"

#include <glob.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string>

#include "kernel/sequencerClients.h"
#include "kernel/systemFiles.h"
#include "kernel/waitUntil.h"

namespace kernel {

namespace {

constexpr int firstCardClient = 16;
constexpr int clientsOfACard = 4;

/// The first path that matches, or nothing.
std::optional<std::string> firstMatch(const std::string& pattern) {
    glob_t found{};
    std::optional<std::string> path;
    if (glob(pattern.c_str(), 0, nullptr, &found) == 0) {
        path = found.gl_pathv[0];
    }
    globfree(&found);
    return path;
}

std::string deviceOf(int controller) {
    return "/sys/devices/platform/dummy_hcd." + std::to_string(controller) + "/usb*/*-1";
}

/// How many ports the client of a card shall have: one for each port of the raw device, which is
/// there before they are. 0 while it is not.
std::size_t portsOf(int card) {
    const std::string path = "/proc/asound/card" + std::to_string(card) + "/midi0";
    std::ifstream state(path);
    std::size_t outputs = 0;
    std::size_t inputs = 0;
    for (std::string line; std::getline(state, line);) {
        outputs += line.starts_with("Output ") ? 1U : 0U;
        inputs += line.starts_with("Input ") ? 1U : 0U;
    }
    return std::max(outputs, inputs);
}

}  // namespace

std::optional<int> HostSide::card() const {
    const auto path = firstMatch(deviceOf(controller_) + "/*:1.*/sound/card*");
    if (!path) {
        return std::nullopt;
    }
    return std::stoi(path->substr(path->rfind("card") + 4));
}

std::optional<int> HostSide::client() const {
    const std::optional<int> number = card();
    if (!number) {
        return std::nullopt;
    }
    const std::size_t ports = portsOf(*number);
    const int client = firstCardClient + clientsOfACard * *number;
    const std::vector<SequencerClient> clients = sequencerClients();
    const auto ours = std::ranges::find(clients, client, &SequencerClient::number);
    const bool complete = ours != clients.end() && ports > 0 && ours->ports.size() == ports;
    return complete ? std::optional(client) : std::nullopt;
}

int HostSide::megabitsPerSecond() const {
    const auto path = firstMatch(deviceOf(controller_) + "/speed");
    return std::stoi(textOf(path.value_or("no device")));
}

void HostSide::waitUntilThere() const {
    if (!waitUntil([this] { return client().has_value(); }, std::chrono::seconds(10))) {
        throw std::runtime_error("the device that was plugged has no sequencer client after 10 s");
    }
}

void HostSide::waitUntilGone() const {
    const auto gone = [this] { return !firstMatch(deviceOf(controller_)) && !card(); };
    if (!waitUntil(gone, std::chrono::seconds(30))) {
        throw std::runtime_error("the device that was unplugged is still there after 30 s");
    }
}

}  // namespace kernel
