#include "kernel/UsbMidiGadget.h"

#include <gmock/gmock.h>

#include <csignal>

#include "kernel/publicTools.h"
#include "kernel/rawMidi.h"
#include "kernel/sequencerClients.h"
#include "kernel/sysEx.h"
#include "kernel/waitUntil.h"

namespace kernel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Clock = std::chrono::steady_clock;

/// Whether somebody takes in what the client's first port sends.
bool isHeard(const std::string& name) {
    return !sequencerClientsNamed(name).at(0).ports.at(0).sendsTo.empty();
}

TEST(UsbMidiGadget, IsAClientOfTheSequencerWithinTwoSeconds) {
    UsbMidiGadget gadget({.product = "Tormelk"});
    EXPECT_THAT(sequencerClientsNamed("Tormelk"), IsEmpty());
    const auto began = Clock::now();
    gadget.plug();
    EXPECT_LT(Clock::now() - began, 2s);

    const std::vector<SequencerClient> clients = sequencerClientsNamed("Tormelk");
    ASSERT_THAT(clients, SizeIs(1));
    EXPECT_TRUE(clients[0].isKernel);
    EXPECT_EQ(clients[0].number, gadget.host().client());
    ASSERT_THAT(clients[0].ports, SizeIs(1));
    EXPECT_EQ(clients[0].ports[0].name, "Tormelk MIDI 1");
}

TEST(UsbMidiGadget, AddsNothingButTheHostsClient) {
    const std::size_t before = sequencerClients().size();
    UsbMidiGadget gadget({});
    gadget.plug();
    EXPECT_THAT(sequencerClients(), SizeIs(before + 1));
    EXPECT_EQ(gadget.host().card(), 1);
    EXPECT_EQ(gadget.host().client(), 20);
}

TEST(UsbMidiGadget, IsGoneOnceItIsUnplugged) {
    UsbMidiGadget gadget({});
    gadget.plug();
    gadget.unplug();
    EXPECT_THAT(sequencerClientsNamed("Tormelk"), IsEmpty());
    EXPECT_EQ(gadget.host().card(), std::nullopt);
    EXPECT_EQ(gadget.host().client(), std::nullopt);
}

TEST(UsbMidiGadget, TakesASysExOfThePublicToolsByteForByte) {
    UsbMidiGadget gadget({});
    gadget.plug();
    sendThroughSequencer(address(*gadget.host().client()), sysEx(254));
    EXPECT_EQ(gadget.received().atLeast(254, 5s), sysEx(254));
}

TEST(UsbMidiGadget, TakesAPacketThatIsFullWithoutWaitingForMore) {
    struct Speed {
        bool isHigh;
        std::size_t bytesInAPacket;  // of MIDI: three of four
    };
    for (const Speed& speed : {Speed{false, 48}, Speed{true, 384}}) {
        UsbMidiGadget gadget({.highSpeed = speed.isHigh});
        gadget.plug();
        const RawMidi host =
            openRawMidiOutput("hw:" + std::to_string(gadget.host().card().value_or(-1)) + ",0,0");
        writeRawMidi(*host, sysEx(speed.bytesInAPacket));
        EXPECT_EQ(gadget.received().atLeast(speed.bytesInAPacket, 5s), sysEx(speed.bytesInAPacket));
    }
}

TEST(UsbMidiGadget, KeepsWhatItReceivedWhenItIsUnpluggedAndPluggedAgain) {
    UsbMidiGadget gadget({});
    gadget.plug();
    sendThroughSequencer(address(*gadget.host().client()), sysEx(20));
    (void)gadget.received().atLeast(20, 5s);
    gadget.unplug();
    EXPECT_EQ(gadget.received().all(), sysEx(20));

    gadget.plug();
    gadget.received().forget();
    sendThroughSequencer(address(*gadget.host().client()), sysEx(30));
    EXPECT_EQ(gadget.received().atLeast(30, 5s), sysEx(30));
}

TEST(UsbMidiGadget, KeepsItsPortsApart) {
    UsbMidiGadget gadget({.product = "Zwolk", .ports = 2});
    gadget.plug();
    ASSERT_THAT(sequencerClientsNamed("Zwolk"), SizeIs(1));
    EXPECT_EQ(sequencerClientsNamed("Zwolk")[0].ports[1].name, "Zwolk MIDI 2");
    sendThroughSequencer(address(*gadget.host().client(), 1), sysEx(50));
    EXPECT_EQ(gadget.received(1).atLeast(50, 5s), sysEx(50));
    EXPECT_THAT(gadget.received(0).all(), IsEmpty());
}

TEST(UsbMidiGadget, SendsToWhoeverListensAtTheHost) {
    UsbMidiGadget gadget({});
    gadget.plug();
    Program listener({"aseqdump", "-p", address(*gadget.host().client())});
    ASSERT_TRUE(waitUntil([] { return isHeard("Tormelk"); }, 10s)) << listener.output();
    gadget.send({0x9F, 60, 100});
    EXPECT_TRUE(listener.waitForOutput("Note on", 5s)) << listener.output();
    EXPECT_THAT(listener.stop(SIGINT).output, HasSubstr("15, note 60, velocity 100"));
}

TEST(UsbMidiGadget, IsTheSameAtFullAndAtHighSpeed) {
    for (const bool highSpeed : {false, true}) {
        UsbMidiGadget gadget({.highSpeed = highSpeed});
        gadget.plug();
        EXPECT_EQ(gadget.host().megabitsPerSecond(), highSpeed ? 480 : 12);
        sendThroughSequencer(address(*gadget.host().client()), sysEx(254));
        EXPECT_EQ(gadget.received().atLeast(254, 5s), sysEx(254));
    }
}

TEST(UsbMidiGadget, CanHaveATwinOfTheSameName) {
    UsbMidiGadget first({});
    UsbMidiGadget second({});
    first.plug();
    second.plug();
    EXPECT_THAT(sequencerClientsNamed("Tormelk"), SizeIs(2));
    EXPECT_NE(first.host().client(), second.host().client());
    sendThroughSequencer(address(*second.host().client()), sysEx(40));
    EXPECT_EQ(second.received().atLeast(40, 5s), sysEx(40));
    EXPECT_THAT(first.received().all(), IsEmpty());
}

TEST(UsbMidiGadget, CanBeThereThreeTimesAndNotMore) {
    const UsbMidiGadget first({});
    const UsbMidiGadget second({});
    const UsbMidiGadget third({});
    EXPECT_THROW(UsbMidiGadget({}), std::runtime_error);
}

TEST(UsbMidiGadget, LeavesNothingBehind) {
    { UsbMidiGadget({}).plug(); }
    EXPECT_TRUE(fs::is_empty("/sys/kernel/config/usb_gadget"));
    EXPECT_THAT(sequencerClientsNamed("Tormelk"), IsEmpty());
}

}  // namespace
}  // namespace kernel
