#include "sending/frames.h"

#include <algorithm>

namespace sending {

std::uint8_t checksum(std::span<const std::uint8_t> bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum += byte;
    }
    return static_cast<std::uint8_t>(sum & 0xFF);
}

std::uint8_t imageByte(const ImageBuffer& image, std::uint64_t index) {
    return index < image.size() ? image[static_cast<std::size_t>(index)] : std::uint8_t{0};
}

WriteBlock writeBlock(const Frame& write, const ImageBuffer& image, std::uint64_t first) {
    WriteBlock block{};
    std::copy(write.begin(), write.end(), block.begin());
    for (std::size_t i = 0; i < imageBytesInABlock; ++i) {
        block[frameSize + i] = imageByte(image, first + i);
    }
    block[blockChecksumOffset] = checksum(std::span(block).first(blockChecksumOffset));
    return block;
}

}  // namespace sending
