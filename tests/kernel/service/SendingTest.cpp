#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/sysEx.h"

// What is sent arrives byte for byte.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::SizeIs;

class Sending : public testing::Test {
protected:
    midi::ZQMIDIRealDestination& tormelk() { return *layer.destination("Tormelk MIDI 1"); }

    EndpointLayer layer;
};

TEST_F(Sending, ASysExArrivesByteForByte) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    send(tormelk(), sysEx(254));
    EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254));
}

TEST_F(Sending, TwentyThousandShortMessagesEachWithAPortOfItsOwnArriveInOrder) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    Bytes expected;
    for (int message = 0; message < 20000; ++message) {
        const Bytes bytes{0x90, static_cast<std::uint8_t>(message % 128),
                          static_cast<std::uint8_t>(message / 128 % 128)};
        send(tormelk(), bytes);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    EXPECT_TRUE(device.received().atLeast(expected.size(), 10s) == expected);
}

TEST_F(Sending, ASlowDeviceGetsEverythingWhole) {
    UserSpaceMidiDevice device({.bytesPerSecond = 3125});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk Port") != nullptr; }));
    Bytes expected;
    for (int block = 0; block < 60; ++block) {
        Bytes bytes = sysEx(254);
        bytes[2] = static_cast<std::uint8_t>(block);
        send(*layer.destination("Tormelk Port"), bytes);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    EXPECT_TRUE(device.received().atLeast(expected.size(), 10s) == expected);
}

TEST_F(Sending, ADeviceThatStopsTakingDataIsOfflineWithinSecondsAndBackWhenItGoesOn) {
    UserSpaceMidiDevice device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk Port") != nullptr; }));
    midi::ZQMIDIRealDestination& port = *layer.destination("Tormelk Port");
    device.stopTaking();
    const auto began = std::chrono::steady_clock::now();
    int sent = 0;
    while (port.isOnline() && sent < 100) {
        send(port, sysEx(254));
        ++sent;
    }
    EXPECT_TRUE(port.isOffline());
    EXPECT_LT(std::chrono::steady_clock::now() - began, 5s);
    device.goOnTaking();
    ASSERT_TRUE(layer.runUntil([&] { return port.isOnline(); }));
    // The last message found no room, and left none of its bytes.
    const std::size_t whole = static_cast<std::size_t>(sent - 1) * 254;
    EXPECT_THAT(device.received().atLeast(whole + 1, 2s), SizeIs(whole));
}

TEST(End, OfAProgramThatHasSentToADeadDeviceTakesLessThanTwoSeconds) {
    UserSpaceMidiDevice device({});
    device.plug();
    auto layer = std::make_unique<EndpointLayer>();
    device.stopTaking();
    for (int block = 0; block < 4; ++block) {
        send(*layer->destination("Tormelk Port"), sysEx(254));
    }
    const auto began = std::chrono::steady_clock::now();
    layer.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - began, 3s);
}

}  // namespace
}  // namespace kernel
