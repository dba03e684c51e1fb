#include "platform/alsa/rawDevice.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>
#include <string_view>

namespace platform::alsa {
namespace {

/// The number after the colon of a line like "  Avail        : 4096"; nothing if it is another
/// line.
std::optional<std::size_t> valueIn(std::string_view line, std::string_view name) {
    const std::size_t begin = line.find_first_not_of(' ');
    const std::size_t colon = line.find(':');
    if (begin == std::string_view::npos || colon == std::string_view::npos ||
        line.substr(begin, name.size()) != name) {
        return std::nullopt;
    }
    const std::size_t first = line.find_first_not_of(' ', colon + 1);
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    std::size_t value = 0;
    const auto [end, error] =
        std::from_chars(line.data() + first, line.data() + line.size(), value);
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

/// What one output's line of that name says, in the text about its device.
std::optional<std::size_t> valueOfOutput(const std::string& text, int output,
                                         std::string_view name) {
    const std::string heading = "Output " + std::to_string(output);
    std::istringstream lines(text);
    bool inOutput = false;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.front() != ' ') {
            inOutput = line == heading;
        } else if (const auto value = valueIn(line, name); inOutput && value) {
            return value;
        }
    }
    return std::nullopt;
}

/// The whole text of a file of the kernel's; empty where there is none.
std::string textOf(const std::string& name) {
    std::ifstream file(name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The sequencer gives every raw device of a card so many port numbers.
constexpr int portsOfRawDevice = 32;

std::string textAbout(int card, int port) {
    return textOf("/proc/asound/card" + std::to_string(card) + "/midi" +
                  std::to_string(port / portsOfRawDevice));
}

/// The process of a thread; a process is its own.
std::optional<std::size_t> processOf(int thread) {
    std::istringstream lines(textOf("/proc/" + std::to_string(thread) + "/status"));
    for (std::string line; std::getline(lines, line);) {
        std::replace(line.begin(), line.end(), '\t', ' ');
        if (const auto process = valueIn(line, "Tgid")) {
            return process;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<FillLevel> outputLevelIn(const std::string& text, int output) {
    const auto capacity = valueOfOutput(text, output, "Buffer size");
    const auto free = valueOfOutput(text, output, "Avail");
    return capacity.value_or(0) > 0 && free ? std::optional(FillLevel{*free, *capacity})
                                            : std::nullopt;
}

std::optional<int> ownerOfOutputIn(const std::string& text, int output) {
    const auto owner = valueOfOutput(text, output, "Owner PID");
    return owner ? std::optional(static_cast<int>(*owner)) : std::nullopt;
}

std::optional<FillLevel> levelOfRawDevice(int card, int port) {
    return outputLevelIn(textAbout(card, port), port % portsOfRawDevice);
}

std::string programThatHolds(int card, int port) {
    const auto owner = ownerOfOutputIn(textAbout(card, port), port % portsOfRawDevice);
    const auto process = owner ? processOf(*owner) : std::nullopt;
    std::string name = process ? textOf("/proc/" + std::to_string(*process) + "/comm") : "";
    name.erase(std::find(name.begin(), name.end(), '\n'), name.end());
    return name;
}

}  // namespace platform::alsa
