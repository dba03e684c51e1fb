#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/publicTools.h"
#include "kernel/service/Bystander.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/service/OtherProgram.h"
#include "kernel/sysEx.h"
#include "kernel/waitUntil.h"

// What is sent arrives byte for byte.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using platform::MIDIEndpointRef;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
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

TEST_F(Sending, TwentyThousandShortMessagesEachWithAPortOfItsOwnArriveInOrderAndUnseen) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    Bystander bystander;
    (void)bystander.seen();
    Bytes expected;
    for (int message = 0; message < 20000; ++message) {
        const Bytes bytes{0x90, static_cast<std::uint8_t>(message % 128),
                          static_cast<std::uint8_t>(message / 128 % 128)};
        send(tormelk(), bytes);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    EXPECT_TRUE(device.received().atLeast(expected.size(), 10s) == expected);
    EXPECT_THAT(bystander.seen(), ElementsAre(Pair(SND_SEQ_EVENT_PORT_SUBSCRIBED, 1)));
    // Given back once it has been idle.
    std::map<int, int> later;
    EXPECT_TRUE(waitUntil([&] { return !(later = bystander.seen()).empty(); }, 6s));
    EXPECT_THAT(later, ElementsAre(Pair(SND_SEQ_EVENT_PORT_UNSUBSCRIBED, 1)));
}

TEST_F(Sending, ANoteOnWithVelocityZeroStaysOne) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    send(tormelk(), {0x9F, 0x3C, 0x00, 0x9F, 0x3D, 0x7F});
    EXPECT_EQ(device.received().atLeast(6, 5s), (Bytes{0x9F, 0x3C, 0x00, 0x9F, 0x3D, 0x7F}));
}

TEST_F(Sending, ABurstOfSysExFarBeyondTheKernelsBufferArrivesWhole) {
    UserSpaceMidiDevice device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk Port") != nullptr; }));
    Bytes expected;
    for (int block = 0; block < 200; ++block) {
        send(*layer.destination("Tormelk Port"), sysEx(254));
        const Bytes bytes = sysEx(254);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    EXPECT_TRUE(device.received().atLeast(expected.size(), 20s) == expected);
}

TEST_F(Sending, TheLastBlockBeforeAnotherDestinationIsUsedArrivesWhole) {
    UsbMidiGadget first({});
    UsbMidiGadget second({.product = "Zwolk"});
    first.plug();
    second.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Zwolk MIDI 1") != nullptr; }));
    Bytes expected;
    for (int time = 0; time < 20; ++time) {
        send(tormelk(), sysEx(100));
        send(*layer.destination("Zwolk MIDI 1"), sysEx(100));
        const Bytes bytes = sysEx(100);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    EXPECT_TRUE(first.received().atLeast(expected.size(), 5s) == expected);
    EXPECT_TRUE(second.received().atLeast(expected.size(), 5s) == expected);
}

TEST_F(Sending, ToADestinationWithoutASenderSendsNothing) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    tormelk().processMIDIPacketList(*platform::makeOnePacketList(sysEx(20)), nullptr);
    send(tormelk(), {0x90, 1, 2});
    EXPECT_EQ(device.received().atLeast(3, 5s), (Bytes{0x90, 1, 2}));
}

TEST_F(Sending, GoesOnToADeviceToWhichAnotherProgramIsConnected) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    ASSERT_EQ(connectPorts("16:0", address(*device.host().client())).status, 0);
    const MIDIEndpointRef port = tormelk().midiEndpointRef();
    // The kernel's virtual MIDI is no program.
    EXPECT_THAT(layer.service.connectedPrograms(port), IsEmpty());
    for (int block = 0; block < 50; ++block) {
        send(tormelk(), sysEx(254));
    }
    const Bytes all = device.received().atLeast(std::size_t{50} * 254, 10s);
    EXPECT_THAT(all, SizeIs(50 * 254));
    EXPECT_TRUE(tormelk().isOnline());
    EXPECT_EQ(disconnectPorts("16:0", address(*device.host().client())).status, 0);
}

TEST_F(Sending, ToADeviceThatAnotherProgramSendsToIsWholeAndTheProgramIsNamed) {
    UsbMidiGadget device({});
    device.plug();
    const OtherProgram player("Player", {"out=read"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    ASSERT_EQ(connectPorts("Player:0", address(*device.host().client())).status, 0);
    EXPECT_THAT(layer.service.connectedPrograms(tormelk().midiEndpointRef()),
                ElementsAre("Player"));
    Bytes expected;
    const auto arrived = [&] { return device.received().atLeast(expected.size(), 10s); };
    for (int block = 0; block < 20; ++block) {
        Bytes bytes = sysEx(254);
        bytes[2] = static_cast<std::uint8_t>(block);
        send(tormelk(), bytes);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
        ASSERT_EQ(arrived(), expected);
        player.play();
        expected.insert(expected.end(), {0x90, 60, 100});
        ASSERT_EQ(arrived(), expected);
    }
    EXPECT_TRUE(tormelk().isOnline());
    EXPECT_THAT(layer.service.connectedPrograms(tormelk().midiEndpointRef()),
                ElementsAre("Player"));
}

TEST_F(Sending, KeepsOtherProgramsOutWhileItLasts) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    send(tormelk(), sysEx(254));
    EXPECT_NE(connectPorts("16:0", address(*device.host().client())).status, 0);
    // Given back once it has been idle.
    EXPECT_TRUE(waitUntil(
        [&] { return connectPorts("16:0", address(*device.host().client())).status == 0; }, 8s));
    EXPECT_EQ(disconnectPorts("16:0", address(*device.host().client())).status, 0);
}

TEST_F(Sending, TellsWhichProgramsAreConnected) {
    UsbMidiGadget device({});
    device.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.source("Tormelk MIDI 1") != nullptr; }));
    const MIDIEndpointRef source = layer.source("Tormelk MIDI 1")->midiEndpointRef();
    EXPECT_THAT(layer.service.connectedPrograms(source), IsEmpty());
    Program listener({"aseqdump", "-p", address(*device.host().client())});
    EXPECT_TRUE(waitUntil(
        [&] {
            return layer.service.connectedPrograms(source) == std::vector<std::string>{"aseqdump"};
        },
        10s));
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

TEST_F(Sending, ADeviceThatStopsTakingDataIsOfflineWithinSecondsAndBackOnceThatIsTakenIn) {
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
    EXPECT_LT(std::chrono::steady_clock::now() - began, 10s);
    ASSERT_TRUE(layer.runUntil([&] { return port.isOnline(); }));
    device.goOnTaking();
    // What waited was thrown away, but for what was on its way already.
    EXPECT_LE(device.received().atLeast(4096, 1s).size(), 2 * 254U);
    device.received().forget();
    send(port, sysEx(254));
    EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254));
}

TEST_F(Sending, AProgramThatStopsReadingIsOfflineUntilItReadsAgainAndKeepsWhatItHad) {
    Program reader({"aseqdump"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("aseqdump") != nullptr; }));
    midi::ZQMIDIRealDestination& port = *layer.destination("aseqdump");
    const auto numbered = [](int number) {
        Bytes bytes = sysEx(254);
        bytes[2] = static_cast<std::uint8_t>(number);
        return bytes;
    };
    send(port, numbered(0));
    ASSERT_TRUE(reader.waitForOutput(hexadecimal(numbered(0)), 10s)) << reader.output();
    ::kill(reader.process(), SIGSTOP);
    const auto began = std::chrono::steady_clock::now();
    int sent = 1;
    while (port.isOnline() && sent < 100) {
        send(port, numbered(sent++));
    }
    EXPECT_TRUE(port.isOffline());
    EXPECT_LT(std::chrono::steady_clock::now() - began, 30s);
    ASSERT_TRUE(layer.runUntil([&] { return port.displayName() == "aseqdump (offline)"; }));
    ::kill(reader.process(), SIGCONT);
    ASSERT_TRUE(layer.runUntil([&] { return port.isOnline(); })) << reader.output();
    send(port, numbered(101));
    EXPECT_TRUE(reader.waitForOutput(hexadecimal(numbered(101)), 10s));
    // What it had space for, and nothing of what waited.
    const std::string output = reader.output();
    const auto has = [&](int number) {
        return output.find(hexadecimal(numbered(number))) != std::string::npos;
    };
    int arrived = 0;
    while (has(arrived)) {
        ++arrived;
    }
    EXPECT_GT(arrived, 10);
    EXPECT_LT(arrived, sent);
    for (int number = arrived; number < sent; ++number) {
        EXPECT_FALSE(has(number)) << number;
    }
}

TEST_F(Sending, AnotherDeviceCanBeUsedWhileADeadOneIsGivenBack) {
    UserSpaceMidiDevice dead({});
    UsbMidiGadget other({.product = "Zwolk"});
    dead.plug();
    other.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Zwolk MIDI 1") != nullptr; }));
    dead.stopTaking();
    send(*layer.destination("Tormelk Port"), sysEx(254));
    const auto began = std::chrono::steady_clock::now();
    for (int block = 0; block < 5; ++block) {
        send(*layer.destination("Zwolk MIDI 1"), sysEx(254));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, 1s);
    EXPECT_THAT(other.received().atLeast(std::size_t{5} * 254, 5s), SizeIs(5 * 254));
}

TEST(End, OfAProgramThatHasSentToADeadDeviceTakesLessThanThreeSeconds) {
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

TEST(End, WaitsUntilASlowDeviceHasTakenEverything) {
    UserSpaceMidiDevice device({.bytesPerSecond = 3125});
    device.plug();
    auto layer = std::make_unique<EndpointLayer>();
    Bytes expected;
    for (int block = 0; block < 4; ++block) {
        send(*layer->destination("Tormelk Port"), sysEx(254));
        const Bytes bytes = sysEx(254);
        expected.insert(expected.end(), bytes.begin(), bytes.end());
    }
    layer.reset();
    EXPECT_EQ(device.received().atLeast(expected.size(), 1s), expected);
}

}  // namespace
}  // namespace kernel
