#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/publicTools.h"
#include "kernel/rawMidi.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/service/OtherProgram.h"
#include "kernel/sysEx.h"
#include "kernel/waitUntil.h"

// What is known of what was sent, and that what was cut stays cut.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using platform::Delivery;
using Clock = std::chrono::steady_clock;
using Trouble = Delivery::Trouble;
using testing::IsEmpty;
using testing::Le;

/// What can be on its way at full speed: seven transfers of 64 bytes, of which three in four are
/// MIDI. The kernel counts it as gone, and nothing can call it back.
constexpr std::size_t onItsWay = std::size_t{7} * 48;

const Bytes shortMessage{0x9F, 5, 5};

Bytes block(int number) {
    Bytes bytes = sysEx(254);
    bytes[2] = static_cast<std::uint8_t>(number);
    return bytes;
}

class Deliveries : public testing::Test {
protected:
    /// Begins to count what is sent to a device that is plugged in.
    void begin(const std::string& name) {
        ASSERT_TRUE(layer.runUntil([&] { return layer.destination(name) != nullptr; })) << name;
        port = layer.destination(name);
        handle = port->midiEndpointRef();
        layer.service.beginDelivery(handle);
    }
    [[nodiscard]] Delivery delivery() { return layer.service.delivery(handle); }
    void sendBlocks(int count) {
        for (int number = 0; number < count; ++number) {
            send(*port, block(number));
            const Bytes bytes = block(number);
            sent.insert(sent.end(), bytes.begin(), bytes.end());
            std::this_thread::sleep_for(2ms);
        }
    }
    /// Sends notes as an upload does, which keeps the main thread, for so many or until trouble.
    void upload(int count) {
        for (int sentSoFar = 0; sentSoFar < count && delivery().trouble == Trouble::None;
             ++sentSoFar) {
            send(*port, shortMessage);
            sent.insert(sent.end(), shortMessage.begin(), shortMessage.end());
            std::this_thread::sleep_for(2ms);
        }
    }
    /// Runs the event loop until the account is settled, and returns what was told then.
    Delivery settled() {
        std::optional<Delivery> told;
        layer.service.watchDelivery(handle, [&](const Delivery& end) { told = end; });
        EXPECT_TRUE(layer.runUntil([&] { return told.has_value(); }, 20s));
        layer.service.watchDelivery(handle, {});
        return told.value_or(Delivery{});
    }
    /// The same device takes a whole message again, by the same object.
    template <typename Device>
    void expectItWorksAgain(Device& device) {
        ASSERT_TRUE(layer.runUntil([&] { return port->isOnline(); }));
        handle = port->midiEndpointRef();
        const std::size_t before = device.received().all().size();
        layer.service.beginDelivery(handle);
        send(*port, block(77));
        EXPECT_EQ(settled().trouble, Trouble::None);
        Bytes after = device.received().all();
        after.erase(after.begin(), after.begin() + static_cast<std::ptrdiff_t>(before));
        EXPECT_EQ(after, block(77));
    }

    EndpointLayer layer;
    midi::ZQMIDIRealDestination* port = nullptr;
    platform::MIDIEndpointRef handle = 0;
    Bytes sent;
};

/// A configuration with bytes that no SysEx can have.
Bytes oddBlock() {
    Bytes bytes = block(1);
    bytes[10] = 0x90;
    bytes[50] = 0xF4;
    bytes[60] = 0xF9;
    bytes[70] = 0xF8;
    return bytes;
}

TEST_F(Deliveries, ASysExWithOddBytesInsideGoesOutAsItStands) {
    ReceivedBytes received;
    const RawMidiCollector collector("hw:0,0,0", received);
    begin("Virtual Raw MIDI 0-0 VirMIDI 0-0");
    send(*port, oddBlock());
    EXPECT_EQ(received.atLeast(254, 5s), oddBlock());
}

TEST_F(Deliveries, OverUsbASysExWithOddBytesIsWhatTheKernelMakesOfThemFromAnyProgram) {
    UsbMidiGadget device({});
    device.plug();
    writeRawMidi(*openRawMidiOutput("hw:" + std::to_string(*device.host().card()) + ",0"),
                 oddBlock());
    const Bytes written = device.received().atLeast(254, 500ms);
    device.received().forget();
    begin("Tormelk MIDI 1");
    send(*port, oddBlock());
    EXPECT_EQ(settled().trouble, Trouble::None);
    EXPECT_EQ(device.received().atLeast(254, 500ms), written);
}

TEST_F(Deliveries, OfADeviceThatTakesAllIsSettledOnceItHasStayedForAWhile) {
    UsbMidiGadget device({});
    device.plug();
    begin("Tormelk MIDI 1");
    EXPECT_TRUE(delivery().isSettled);
    sendBlocks(4);
    EXPECT_FALSE(delivery().isSettled);
    Delivery expected;
    expected.handedOver = expected.left = sent.size();
    EXPECT_EQ(settled(), expected);
    EXPECT_EQ(device.received().all(), sent);
}

TEST_F(Deliveries, HalfAMessageIsNoTrouble) {
    UsbMidiGadget device({});
    device.plug();
    begin("Tormelk MIDI 1");
    send(*port, {0x9F, 5});
    EXPECT_EQ(settled().trouble, Trouble::None);
    send(*port, {5});
    EXPECT_EQ(settled().trouble, Trouble::None);
    EXPECT_EQ(device.received().all(), shortMessage);
}

TEST_F(Deliveries, ADeviceThatIsPulledOutAfterAnyOfFourBlocksWentAway) {
    UsbMidiGadget device({});
    for (const int blocks : {1, 2, 3, 4}) {
        device.received().forget();
        sent.clear();
        device.plug();
        begin("Tormelk MIDI 1");
        sendBlocks(blocks);
        device.unplug();
        sendBlocks(4 - blocks);
        const Delivery end = settled();
        EXPECT_EQ(end.trouble, Trouble::WentAway) << blocks;
        EXPECT_EQ(end.handedOver, 4 * 254U);
        const Bytes arrived = device.received().all();
        EXPECT_LE(end.left, arrived.size() + onItsWay) << blocks;
        EXPECT_LE(end.left, static_cast<std::size_t>(blocks) * 254);
        EXPECT_TRUE(std::equal(arrived.begin(), arrived.end(), sent.begin())) << blocks;
        ASSERT_TRUE(layer.runUntil([&] { return port->midiEndpointRef() == 0; }));
    }
    device.plug();
    expectItWorksAgain(device);
}

TEST_F(Deliveries, AfterADeviceIsPulledOutAndPluggedInAgainALongSendDoesNotGoOn) {
    UsbMidiGadget device({});
    device.plug();
    begin("Tormelk MIDI 1");
    upload(100);
    ASSERT_EQ(delivery().trouble, Trouble::None);
    device.unplug();
    device.plug();
    device.received().forget();
    // It is not told of trouble: it goes on in vain.
    for (int time = 0; time < 100; ++time) {
        send(*port, shortMessage);
        std::this_thread::sleep_for(2ms);
    }
    EXPECT_TRUE(port->isOffline());
    EXPECT_EQ(delivery().trouble, Trouble::WentAway);
    EXPECT_THAT(delivery().left, Le(sent.size()));
    EXPECT_THAT(device.received().atLeast(1, 300ms), IsEmpty());
    expectItWorksAgain(device);
}

TEST_F(Deliveries, ADeviceThatStopsTakingDataGetsNothingLaterAndTheCallerIsNotKept) {
    UserSpaceMidiDevice device({});
    device.plug();
    begin("Tormelk Port");
    upload(100);
    device.stopTaking();
    const auto began = Clock::now();
    Clock::duration longest{};
    std::chrono::milliseconds standstill{};
    while (delivery().trouble == Trouble::None && Clock::now() - began < 30s) {
        const auto before = Clock::now();
        upload(1);
        longest = std::max(longest, Clock::now() - before);
        standstill = delivery().standstill;
    }
    EXPECT_EQ(delivery().trouble, Trouble::TakesNothing);
    EXPECT_GT(standstill, 4s);
    EXPECT_LT(longest, 1s);
    EXPECT_LT(Clock::now() - began, 10s);
    EXPECT_TRUE(port->isOffline());
    EXPECT_LT(delivery().left, sent.size());
    // The kernel needs a moment to let go.
    std::this_thread::sleep_for(500ms);
    device.goOnTaking();
    for (int time = 0; time < 100; ++time) {
        send(*port, block(1));
        std::this_thread::sleep_for(2ms);
    }
    const Bytes arrived = device.received().atLeast(sent.size(), 500ms);
    EXPECT_LE(arrived.size(), delivery().left + onItsWay);
    EXPECT_TRUE(std::equal(arrived.begin(), arrived.end(), sent.begin()));
    expectItWorksAgain(device);
}

TEST_F(Deliveries, ADeviceThatGoesOnInTimeGetsAllInOrderAlsoWhatTheKernelHadNoSpaceFor) {
    UserSpaceMidiDevice device({});
    device.plug();
    begin("Tormelk Port");
    device.stopTaking();
    sendBlocks(30);
    EXPECT_EQ(delivery().trouble, Trouble::None);
    EXPECT_LT(delivery().left, sent.size());
    device.goOnTaking();
    const Delivery end = settled();
    EXPECT_EQ(end.trouble, Trouble::None);
    EXPECT_EQ(end.left, sent.size());
    EXPECT_EQ(device.received().atLeast(sent.size(), 5s), sent);
}

TEST_F(Deliveries, WhatIsAbandonedDoesNotArriveLater) {
    UserSpaceMidiDevice device({});
    device.plug();
    begin("Tormelk Port");
    device.stopTaking();
    sendBlocks(4);
    layer.service.abandonDelivery(handle);
    const Delivery end = settled();
    EXPECT_EQ(end.trouble, Trouble::TakesNothing);
    std::this_thread::sleep_for(500ms);
    device.goOnTaking();
    EXPECT_LE(device.received().atLeast(sent.size(), 500ms).size(), end.left + onItsWay);
    expectItWorksAgain(device);
}

TEST_F(Deliveries, AProgramThatHasTheRawDeviceOpenIsNamedAndNotWaitedFor) {
    UsbMidiGadget device({});
    device.plug();
    {
        const RawMidi raw = openRawMidiOutput("hw:" + std::to_string(*device.host().card()) + ",0");
        begin("Tormelk MIDI 1");
        const auto began = Clock::now();
        sendBlocks(4);
        EXPECT_LT(Clock::now() - began, 500ms);
        EXPECT_EQ(delivery().trouble, Trouble::InUse);
        EXPECT_EQ(delivery().program, "kernel-service-") << "as the kernel cuts the test's name";
        EXPECT_EQ(delivery().left, 0U);
        EXPECT_TRUE(port->isOnline());
    }
    send(*port, block(1));
    EXPECT_THAT(device.received().atLeast(1, 200ms), IsEmpty()) << "what was cut stays cut";
    expectItWorksAgain(device);
}

TEST_F(Deliveries, AProgramThatKeepsOthersFromConnectingIsNamedAndNotWaitedFor) {
    UsbMidiGadget device({});
    device.plug();
    const OtherProgram player("Player", {"out=read"});
    const std::string address = kernel::address(*device.host().client());
    ASSERT_EQ(run({"aconnect", "-e", "Player:0", address}).status, 0);
    begin("Tormelk MIDI 1");
    const auto began = Clock::now();
    sendBlocks(4);
    EXPECT_LT(Clock::now() - began, 500ms);
    const Delivery end = settled();
    EXPECT_EQ(end.trouble, Trouble::InUse);
    EXPECT_EQ(end.program, "Player");
    EXPECT_TRUE(port->isOnline());
    ASSERT_EQ(disconnectPorts("Player:0", address).status, 0);
    expectItWorksAgain(device);
}

}  // namespace
}  // namespace kernel
