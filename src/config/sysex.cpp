#include "config/sysex.h"

#include <algorithm>
#include <utility>

#include "config/factoryTables.h"
#include "texts/hexadecimal.h"

namespace config {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t endMark = 0xF7;

/// The objection to the header. A message that ends within it may still begin as it should.
std::string objectionToHeader(Bytes message) {
    const Bytes expected = Bytes(SysBuf_init).first(headerSize);
    const Bytes header = headerOf(message);
    if (std::equal(header.begin(), header.end(), expected.begin())) {
        return {};
    }
    return "Message begins " + texts::hexadecimal(header) + ": a configuration message begins " +
           texts::hexadecimal(expected);
}

std::string objectionToLength(Bytes message) {
    return message.size() == blockSize
               ? std::string()
               : "Message of " + std::to_string(message.size()) +
                     " bytes: a configuration message has " + std::to_string(blockSize);
}

/// The objection to the bytes behind the header of a message that has the right length.
std::string objectionToContent(Bytes message) {
    const Bytes content = message.subspan(headerSize, endOffset - headerSize);
    const auto wrong =
        std::find_if(content.begin(), content.end(), [](std::uint8_t byte) { return byte > 0x7F; });
    if (wrong != content.end()) {
        const auto place = headerSize + static_cast<std::size_t>(wrong - content.begin());
        return "Byte " + std::to_string(place) + " is " + texts::hexadecimal(*wrong) +
               ": inside a SysEx every byte is below 0x80";
    }
    if (message[endOffset] != endMark) {
        return "Byte " + std::to_string(endOffset) + " is " +
               texts::hexadecimal(message[endOffset]) + ": a SysEx ends with " +
               texts::hexadecimal(endMark);
    }
    const int block = message[blockNumberOffset];
    return isLayer(block - 1) ? std::string()
                              : "Block number " + std::to_string(block) + ": the blocks are 1 to " +
                                    std::to_string(layerCount);
}

}  // namespace

MessageReading readMessage(Bytes message) {
    for (const auto& objectionTo : {objectionToHeader, objectionToLength, objectionToContent}) {
        if (std::string objection = objectionTo(message); !objection.empty()) {
            return {std::nullopt, std::move(objection)};
        }
    }
    return {message[blockNumberOffset] - 1, {}};
}

Bytes headerOf(Bytes message) {
    const Bytes header = message.first(std::min(message.size(), headerSize));
    return !header.empty() && header.back() == endMark ? header.first(header.size() - 1) : header;
}

}  // namespace config
