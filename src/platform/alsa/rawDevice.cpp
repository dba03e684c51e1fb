#include "platform/alsa/rawDevice.h"

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

/// The sequencer gives every raw device of a card so many port numbers.
constexpr int portsOfRawDevice = 32;

}  // namespace

std::optional<FillLevel> outputLevelIn(const std::string& text, int output) {
    const std::string heading = "Output " + std::to_string(output);
    std::istringstream lines(text);
    bool inOutput = false;
    FillLevel level;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.front() != ' ') {
            inOutput = line == heading;
        } else if (const auto whole = valueIn(line, "Buffer size"); inOutput && whole) {
            level.whole = *whole;
        } else if (const auto room = valueIn(line, "Avail"); inOutput && room) {
            level.room = *room;
            return level.whole > 0 ? std::optional(level) : std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<FillLevel> levelOfRawDevice(int card, int port) {
    std::ifstream file("/proc/asound/card" + std::to_string(card) + "/midi" +
                       std::to_string(port / portsOfRawDevice));
    std::ostringstream text;
    text << file.rdbuf();
    return file ? outputLevelIn(text.str(), port % portsOfRawDevice) : std::nullopt;
}

}  // namespace platform::alsa
