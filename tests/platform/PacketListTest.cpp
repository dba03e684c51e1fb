#include "platform/PacketList.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numeric>
#include <utility>
#include <vector>

namespace platform {
namespace {

std::vector<std::pair<std::uint64_t, std::vector<std::uint8_t>>> packetsOf(
    const MIDIPacketList& list) {
    std::vector<std::pair<std::uint64_t, std::vector<std::uint8_t>>> packets;
    forEachPacket(list, [&](std::uint64_t timeStamp, std::span<const std::uint8_t> bytes) {
        packets.emplace_back(timeStamp, std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
    });
    return packets;
}

TEST(PacketList, HasThePlatformsPackedLayout) {
    EXPECT_EQ(sizeof(MIDIPacket), 266U);
    EXPECT_EQ(sizeof(MIDIPacketList), 270U);
    const std::vector<std::uint8_t> bytes = {0x90, 0x3C, 0x7F};
    const MIDIPacketListPtr list = makeOnePacketList(bytes);
    std::vector<std::uint8_t> raw(17);
    std::memcpy(raw.data(), list.get(), raw.size());
    EXPECT_EQ(raw, (std::vector<std::uint8_t>{1, 0, 0, 0,              // one packet
                                              0, 0, 0, 0, 0, 0, 0, 0,  // now
                                              3, 0,                    // three bytes
                                              0x90, 0x3C, 0x7F}));
}

TEST(PacketList, HoldsUpTo256BytesInOnePacket) {
    std::vector<std::uint8_t> bytes(300);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    const auto packets = packetsOf(*makeOnePacketList(bytes));
    ASSERT_EQ(packets.size(), 1U);
    bytes.resize(256);
    EXPECT_EQ(packets[0].second, bytes);
}

TEST(PacketList, HoldsAnEmptyPacket) {
    const auto packets = packetsOf(*makeOnePacketList({}));
    ASSERT_EQ(packets.size(), 1U);
    EXPECT_TRUE(packets[0].second.empty());
}

TEST(PacketList, StepsThroughPacketsByTheirLength) {
    const std::vector<std::uint8_t> raw = {2, 0, 0, 0,                            //
                                           1, 0, 0, 0, 0, 0, 0, 0, 2, 0, 7,   8,  //
                                           0, 1, 0, 0, 0, 0, 0, 0, 1, 0, 0xF7};   //
    const MIDIPacketListPtr list = makeOnePacketList({});
    std::memcpy(list.get(), raw.data(), raw.size());
    const auto packets = packetsOf(*list);
    ASSERT_EQ(packets.size(), 2U);
    EXPECT_EQ(packets[0].first, 1U);
    EXPECT_EQ(packets[0].second, (std::vector<std::uint8_t>{7, 8}));
    EXPECT_EQ(packets[1].first, 256U);
    EXPECT_EQ(packets[1].second, (std::vector<std::uint8_t>{0xF7}));
}

}  // namespace
}  // namespace platform
