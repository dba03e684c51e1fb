#include "kernel/UserSpaceMidiDevice.h"

#include <gmock/gmock.h>

#include "kernel/UsbMidiGadget.h"
#include "kernel/publicTools.h"
#include "kernel/sequencerClients.h"
#include "kernel/sysEx.h"

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::IsEmpty;
using testing::SizeIs;
using Clock = std::chrono::steady_clock;

TEST(UserSpaceMidiDevice, IsAClientWithTheNamesOfItsPorts) {
    UserSpaceMidiDevice device({.product = "Zwolk", .portNames = {"Live Port", "Other"}});
    device.plug();
    const std::vector<SequencerClient> clients = sequencerClientsNamed("Zwolk");
    ASSERT_THAT(clients, SizeIs(1));
    EXPECT_EQ(clients[0].number, device.host().client());
    ASSERT_THAT(clients[0].ports, SizeIs(2));
    EXPECT_EQ(clients[0].ports[0].name, "Zwolk Live Port");
    EXPECT_EQ(clients[0].ports[1].name, "Zwolk Other");
}

TEST(UserSpaceMidiDevice, TakesASysExOfThePublicToolsByteForByte) {
    UserSpaceMidiDevice device({});
    device.plug();
    sendThroughSequencer(address(*device.host().client()), sysEx(254));
    EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254));
}

TEST(UserSpaceMidiDevice, KeepsItsPortsApart) {
    UserSpaceMidiDevice device({.portNames = {"One", "Two"}});
    device.plug();
    sendThroughSequencer(address(*device.host().client(), 1), sysEx(50));
    EXPECT_EQ(device.received(1).atLeast(50, 5s), sysEx(50));
    EXPECT_THAT(device.received(0).all(), IsEmpty());
}

TEST(UserSpaceMidiDevice, TakesNoMoreThanItsRate) {
    UserSpaceMidiDevice device({.bytesPerSecond = 3125});
    device.plug();
    const auto began = Clock::now();
    sendThroughSequencer(address(*device.host().client()), sysEx(3125));
    EXPECT_EQ(device.received().atLeast(3125, 10s), sysEx(3125));
    // The last transfer is there at once, and has its pause behind it.
    EXPECT_GE(Clock::now() - began, 950ms);
}

TEST(UserSpaceMidiDevice, CanStopTakingAndGoOn) {
    UserSpaceMidiDevice device({});
    device.plug();
    device.stopTaking();
    Program sender({"amidi", "-p", "hw:" + std::to_string(*device.host().card()) + ",0", "-S",
                    hexadecimal(sysEx(254))});
    // A transfer carries 16 times three bytes.
    EXPECT_THAT(device.received().atLeast(49, 500ms), SizeIs(testing::Le(48)));
    device.goOnTaking();
    EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254));
    EXPECT_EQ(sender.finish(5s).status, 0);
}

TEST(UserSpaceMidiDevice, CanBeUnpluggedWhileItTakesNothing) {
    UserSpaceMidiDevice device({});
    device.plug();
    device.stopTaking();
    device.unplug();
    EXPECT_THAT(sequencerClientsNamed("Tormelk"), IsEmpty());
}

TEST(UserSpaceMidiDevice, CanBePluggedAgain) {
    UserSpaceMidiDevice device({});
    for (int time = 0; time < 3; ++time) {
        device.plug();
        device.received().forget();
        sendThroughSequencer(address(*device.host().client()), sysEx(254));
        EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254)) << time;
        device.unplug();
        EXPECT_THAT(sequencerClientsNamed("Tormelk"), IsEmpty()) << time;
    }
}

TEST(UserSpaceMidiDevice, StandsBesideTheKernelsDevices) {
    UsbMidiGadget before({.product = "Before"});
    UsbMidiGadget after({.product = "After"});
    UserSpaceMidiDevice device({});
    before.plug();
    device.plug();
    after.plug();
    sendThroughSequencer(address(*device.host().client()), sysEx(254));
    EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254));
    EXPECT_THAT(before.received().all(), IsEmpty());
    EXPECT_THAT(after.received().all(), IsEmpty());
}

}  // namespace
}  // namespace kernel
