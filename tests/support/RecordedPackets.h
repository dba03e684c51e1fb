#pragma once

#include <cstdint>
#include <vector>

#include "platform/PacketList.h"

namespace support {

struct RecordedPacket {
    std::uint64_t timeStamp = 0;
    std::vector<std::uint8_t> bytes;

    bool operator==(const RecordedPacket&) const = default;
};

/// A packet list, kept.
using RecordedPacketList = std::vector<RecordedPacket>;

[[nodiscard]] inline RecordedPacketList recordOf(const platform::MIDIPacketList& list) {
    RecordedPacketList record;
    platform::forEachPacket(list,
                            [&](std::uint64_t timeStamp, std::span<const std::uint8_t> bytes) {
                                record.push_back({timeStamp, {bytes.begin(), bytes.end()}});
                            });
    return record;
}

}  // namespace support
