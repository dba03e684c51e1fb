#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <span>

namespace platform {

// The packet list in the platform's layout, packed:
//
//   packet count (32 bits) | time stamp (64) | length (16) | data (length bytes) | time stamp ...
//
// A packet declares up to 256 data bytes; one that arrives may hold more, so packets are stepped
// through by their length and never by sizeof.
#pragma pack(push, 1)
struct MIDIPacket {
    std::uint64_t timeStamp;  ///< nanoseconds of the service's clock; 0 means now
    std::uint16_t length;     ///< bytes of `data` in use
    std::uint8_t data[256];
};
struct MIDIPacketList {
    std::uint32_t numPackets;
    MIDIPacket packet[1];
};
#pragma pack(pop)

inline constexpr std::size_t packetCountSize = 4;
inline constexpr std::size_t packetHeaderSize = 10;

/// Space for the packet count, one packet header and 256 data bytes, as every sender allocates it.
inline constexpr std::size_t onePacketListSize = 272;

struct PacketListDeleter {
    void operator()(MIDIPacketList* list) const { ::operator delete(list); }
};
using MIDIPacketListPtr = std::unique_ptr<MIDIPacketList, PacketListDeleter>;

/// A newly allocated list of one packet that is sent at once (time stamp 0). `bytes` is cut after
/// 256 bytes, the most that one packet of this size can hold.
[[nodiscard]] inline MIDIPacketListPtr makeOnePacketList(std::span<const std::uint8_t> bytes) {
    void* memory = ::operator new(onePacketListSize);
    std::memset(memory, 0, onePacketListSize);
    MIDIPacketListPtr list(static_cast<MIDIPacketList*>(memory));
    const std::size_t length = bytes.size() < 256 ? bytes.size() : 256;
    list->numPackets = 1;
    list->packet[0].length = static_cast<std::uint16_t>(length);
    if (length > 0) {
        std::memcpy(list->packet[0].data, bytes.data(), length);
    }
    return list;
}

/// Calls `visit(timeStamp, bytes)` for each packet in order. The bytes are valid during the call.
template <typename Visit>
void forEachPacket(const MIDIPacketList& list, Visit visit) {
    const auto* at = reinterpret_cast<const std::uint8_t*>(&list);
    std::uint32_t count = 0;
    std::memcpy(&count, at, sizeof count);
    at += packetCountSize;
    for (std::uint32_t i = 0; i < count; ++i) {
        std::uint64_t timeStamp = 0;
        std::uint16_t length = 0;
        std::memcpy(&timeStamp, at, sizeof timeStamp);
        std::memcpy(&length, at + sizeof timeStamp, sizeof length);
        at += packetHeaderSize;
        visit(timeStamp, std::span<const std::uint8_t>(at, length));
        at += length;
    }
}

}  // namespace platform
