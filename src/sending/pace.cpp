#include "sending/pace.h"

#include <cmath>

#include "sending/frames.h"

namespace sending {

std::uint64_t blocksFor(std::uint64_t bytes) {
    return bytes / imageBytesInABlock + (bytes % imageBytesInABlock == 0 ? 0 : 1);
}

Seconds timeOfBlocks(std::uint64_t blocks) {
    const Seconds one = static_cast<double>(writeBlockSize) * writePause + afterBlock;
    return static_cast<double>(blocks) * one;
}

Seconds timeOfUpload(std::uint64_t blocks) {
    const auto bytes = static_cast<double>(frameSize);
    const Seconds connect = bytes * connectPause + afterFrame;
    const Seconds erase = bytes * erasePause + afterFrame;
    const Seconds reset = bytes * noPause + afterFrame + afterReset;
    return connect + erase + timeOfBlocks(blocks) + reset;
}

std::string inWords(Seconds time) {
    constexpr std::uint64_t minute = 60;
    constexpr std::uint64_t hour = 60 * minute;
    constexpr double rounding = 1e-9;  // sums of tenths are a little off
    const auto seconds = static_cast<std::uint64_t>(std::ceil(time.count() - rounding));
    if (seconds < minute) {
        return std::to_string(seconds) + " s";
    }
    if (seconds < hour) {
        return std::to_string(seconds / minute) + " min " + std::to_string(seconds % minute) + " s";
    }
    return std::to_string(seconds / hour) + " h " + std::to_string(seconds % hour / minute) +
           " min";
}

std::string inWords(std::uint64_t number) {
    std::string digits = std::to_string(number);
    constexpr std::size_t group = 3;
    for (std::size_t place = digits.size(); place > group;) {
        place -= group;
        digits.insert(place, ",");
    }
    return digits;
}

}  // namespace sending
