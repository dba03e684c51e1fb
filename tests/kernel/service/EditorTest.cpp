#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "kernel/Program.h"
#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/publicTools.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/editorDoing.h"
#include "kernel/service/startUpImage.h"
#include "kernel/waitUntil.h"

// The editor program itself, operated in its own window by an operator that Qt loads into it, and
// what comes out at the device's end of the cable.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Editor, SendsTheFourMessagesOfItsImageToAUsbDevice) {
    UsbMidiGadget tormelk({});
    tormelk.plug();
    const ProgramResult result = run(editorDoing("send-and-close", "Tormelk MIDI 1"), 60s);
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("operator: chose Tormelk MIDI 1\n"));
    EXPECT_THAT(result.output, HasSubstr("Send Done"));
    EXPECT_EQ(tormelk.received().atLeast(1016, 5s), startUpImage());
}

TEST(Editor, SendsTheFourMessagesOfItsImageToVirtualMidi) {
    ReceivedBytes received;
    const RawMidiCollector raw("hw:0,0", received);
    const ProgramResult result =
        run(editorDoing("send-and-close", "Virtual Raw MIDI 0-0 VirMIDI 0-0"), 60s);
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_EQ(received.atLeast(1016, 5s), startUpImage());
}

TEST(Editor, SendsTheFourMessagesOfItsImageToTheSimulator) {
    Program simulator({"env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM",
                       TORMELK_SIMULATOR});
    ASSERT_TRUE(simulator.waitForOutput("ready: Tormelk MIDI 1", 60s)) << simulator.output();
    const ProgramResult result = run(editorDoing("send-and-close", "Tormelk MIDI 1"), 60s);
    EXPECT_EQ(result.status, 0) << result.output;
    ASSERT_TRUE(simulator.waitForOutput("layer 4: 254 bytes", 10s)) << simulator.output();
    const std::string told = simulator.output();
    const Bytes image = startUpImage();
    for (std::size_t line = 0; line < 4; ++line) {
        const auto begin = image.begin() + static_cast<std::ptrdiff_t>(line * 254);
        EXPECT_THAT(told, HasSubstr("    " + hexadecimal(Bytes(begin, begin + 32)) + "\n"));
    }
    EXPECT_THAT(told, Not(HasSubstr("refused")));

    sendThroughSequencer("Tormelk Simulator:1", {0xF0, 0x1D, 0x03, 0x00, 0xF7});
    EXPECT_TRUE(simulator.waitForOutput("refused: ", 10s)) << simulator.output();
}

TEST(Simulator, SaysWhyNobodyCanSeeItAndIsSeenOnceTheSequencerIsThere) {
    const std::filesystem::path device = "/dev/snd/seq";
    const std::filesystem::path aside = "/dev/snd/seq.aside";
    std::filesystem::rename(device, aside);
    const Program simulator(
        {"env", "QT_QPA_PLATFORM=offscreen", "XDG_RUNTIME_DIR=/run", TORMELK_SIMULATOR});
    EXPECT_TRUE(simulator.waitForOutput("sudo modprobe snd-seq", 60s)) << simulator.output();
    std::filesystem::rename(aside, device);
    EXPECT_TRUE(simulator.waitForOutput("ready: Tormelk MIDI 1", 60s)) << simulator.output();
    EXPECT_EQ(sequencerClientsNamed("Tormelk Simulator").size(), 1U);
}

TEST(Simulator, EndsByTheSignalThatAsksForItAndTakesItsPortsAlong) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        const std::size_t before = sequencerClients().size();
        Program simulator({"env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM",
                           TORMELK_SIMULATOR});
        ASSERT_TRUE(simulator.waitForOutput("ready: Tormelk MIDI 1", 60s)) << simulator.output();
        EXPECT_EQ(simulator.stop(signal).status, 128 + signal);
        EXPECT_TRUE(waitUntil([&] { return sequencerClients().size() == before; }, 5s));
    }
}

TEST(Editor, IsOnItsWayOutInNoTimeAlthoughTheDeviceIsDead) {
    UserSpaceMidiDevice device({});
    device.plug();
    device.stopTaking();
    Program program(editorDoing("send-and-close", "Tormelk Port"));
    // Its start takes a while here, all the more while the machine has other things to do.
    ASSERT_TRUE(program.waitForOutput("chose Tormelk Port", 60s)) << program.output();
    const auto began = std::chrono::steady_clock::now();
    const ProgramResult result = program.finish(60s);
    EXPECT_EQ(result.status, 0) << result.output;
    // Leaving the device to the kernel would take 10 s more.
    EXPECT_LT(std::chrono::steady_clock::now() - began, 9s);
}

TEST(Editor, SaysThatTheChosenDeviceHasGone) {
    UsbMidiGadget tormelk({});
    tormelk.plug();
    Program program(editorDoing("send-again-when-gone-and-close", "Tormelk MIDI 1"));
    ASSERT_TRUE(program.waitForOutput("Send Done", 60s)) << program.output();
    tormelk.unplug();
    const ProgramResult result = program.finish(30s);
    EXPECT_EQ(result.status, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("Please select MIDI device first"));
}

TEST(Editor, LeavesNothingBehindInTheSequencer) {
    UsbMidiGadget tormelk({});
    tormelk.plug();
    const std::size_t before = sequencerClients().size();
    EXPECT_EQ(run(editorDoing("send-and-close", "Tormelk MIDI 1"), 60s).status, 0);
    EXPECT_TRUE(waitUntil([&] { return sequencerClients().size() == before; }, 5s));
    EXPECT_THAT(sequencerClientsNamed("Tormelk").at(0).ports.at(0).takesFrom, IsEmpty());
}

}  // namespace
}  // namespace kernel
