#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <filesystem>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/sysEx.h"
#include "kernel/systemFiles.h"
#include "kernel/waitUntil.h"

// Devices that go and come back.

namespace kernel {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::IsEmpty;
using testing::SizeIs;

class Unplugging : public testing::Test {
protected:
    /// The endpoint of a device that is plugged in, once it is listed.
    midi::ZQMIDIRealDestination& listed(const std::string& name) {
        EXPECT_TRUE(layer.runUntil([&] { return layer.destination(name) != nullptr; })) << name;
        return *layer.destination(name);
    }
    /// Until the endpoint layer knows, too.
    bool goes(const midi::ZQMIDIEndpoint& endpoint) {
        return layer.runUntil(
            [&] { return endpoint.isOffline() && endpoint.midiEndpointRef() == 0; });
    }
    bool comes(const midi::ZQMIDIEndpoint& endpoint) {
        return layer.runUntil([&] { return endpoint.isOnline(); });
    }

    EndpointLayer layer;
};

TEST_F(Unplugging, ADeviceInUseIsTheSameObjectWithANewPortWhenItIsBack) {
    UsbMidiGadget device({});
    device.plug();
    midi::ZQMIDIRealDestination& port = listed("Tormelk MIDI 1");
    const int sender = 0;
    port.addSender(&sender);
    port.processMIDIPacketList(*platform::makeOnePacketList(sysEx(254)), &sender);
    ASSERT_EQ(device.received().atLeast(254, 5s), sysEx(254));
    EXPECT_TRUE(port.ioIsRunning());
    device.unplug();
    ASSERT_TRUE(goes(port));
    EXPECT_FALSE(port.ioIsRunning());
    EXPECT_EQ(port.displayName(), "Tormelk MIDI 1 (offline)");
    device.plug();
    ASSERT_TRUE(comes(port));
    EXPECT_TRUE(port.ioIsRunning());
    device.received().forget();
    port.processMIDIPacketList(*platform::makeOnePacketList(sysEx(100)), &sender);
    EXPECT_EQ(device.received().atLeast(100, 5s), sysEx(100));
    port.removeSender(&sender);
    EXPECT_THAT(layer.manager().realDestinations(), SizeIs(3));
}

TEST_F(Unplugging, BetweenTwoBlocksEndsTheSendInSilence) {
    UsbMidiGadget device({});
    device.plug();
    midi::ZQMIDIRealDestination& port = listed("Tormelk MIDI 1");
    send(port, sysEx(254));
    device.unplug();
    // Nobody has told the program yet.
    const auto began = std::chrono::steady_clock::now();
    for (int block = 0; block < 3; ++block) {
        send(port, sysEx(254));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, 1s);
    EXPECT_TRUE(goes(port));
}

TEST_F(Unplugging, IsKnownToWhoAsksWhileTheEventLoopDoesNotRunAndToAllOnceItDoes) {
    UsbMidiGadget device({});
    device.plug();
    midi::ZQMIDIRealDestination& port = listed("Tormelk MIDI 1");
    layer.run(300ms);
    const int changes = layer.setupChanges;
    EXPECT_TRUE(port.isOnline());
    device.unplug();
    EXPECT_TRUE(waitUntil([&] { return port.isOffline(); }, 5s));
    EXPECT_EQ(layer.setupChanges, changes);
    EXPECT_EQ(layer.destination("Tormelk MIDI 1 (offline)"), &port);
    device.plug();
    EXPECT_TRUE(port.isOffline()) << "what has gone does not come back as it was";
    EXPECT_TRUE(comes(port));
    EXPECT_GT(layer.setupChanges, changes);
}

TEST_F(Unplugging, WhatIsPluggedInThereNextGetsNothingOfWhatWasMeantForTheOther) {
    UsbMidiGadget device({});
    UsbMidiGadget next({.product = "Zwolk"});
    device.plug();
    midi::ZQMIDIRealDestination& port = listed("Tormelk MIDI 1");
    const int client = *device.host().client();
    send(port, sysEx(254));
    device.unplug();
    next.plug();
    ASSERT_EQ(*next.host().client(), client);
    // Nobody has told the program yet.
    send(port, sysEx(254));
    midi::ZQMIDIRealDestination& other = listed("Zwolk MIDI 1");
    send(other, {0x90, 1, 2});
    EXPECT_EQ(next.received().atLeast(3, 5s), (Bytes{0x90, 1, 2}));
}

TEST_F(Unplugging, DevicesComeBackInAnotherOrderAsThemselves) {
    UsbMidiGadget tormelk({});
    UsbMidiGadget zwolk({.product = "Zwolk"});
    tormelk.plug();
    zwolk.plug();
    midi::ZQMIDIRealDestination& first = listed("Tormelk MIDI 1");
    midi::ZQMIDIRealDestination& second = listed("Zwolk MIDI 1");
    const std::int32_t firstID = first.uniqueID();
    tormelk.unplug();
    zwolk.unplug();
    ASSERT_TRUE(goes(first) && goes(second));
    zwolk.plug();
    tormelk.plug();
    ASSERT_TRUE(comes(first) && comes(second));
    EXPECT_EQ(first.uniqueID(), firstID);
    send(first, sysEx(100));
    EXPECT_EQ(tormelk.received().atLeast(100, 5s), sysEx(100));
    EXPECT_THAT(zwolk.received().all(), IsEmpty());
}

TEST_F(Unplugging, OfTwoTwinsTheOneThatStaysIsStillItselfAndTheOtherComesBack) {
    UsbMidiGadget first({});
    UsbMidiGadget second({});
    first.plug();
    midi::ZQMIDIRealDestination& one = listed("Tormelk MIDI 1");
    second.plug();
    midi::ZQMIDIRealDestination& two = listed("Tormelk MIDI 1 (2)");
    EXPECT_NE(one.uniqueID(), two.uniqueID());
    const std::int32_t idOfOne = one.uniqueID();
    first.unplug();
    ASSERT_TRUE(goes(one));
    EXPECT_TRUE(two.isOnline());
    send(two, sysEx(60));
    EXPECT_EQ(second.received().atLeast(60, 5s), sysEx(60));
    first.plug();
    ASSERT_TRUE(comes(one));
    EXPECT_EQ(one.uniqueID(), idOfOne);
    send(one, sysEx(70));
    EXPECT_EQ(first.received().atLeast(70, 5s), sysEx(70));
    EXPECT_THAT(layer.manager().realDestinations(), SizeIs(4));
}

TEST_F(Unplugging, AnotherRunKnowsTheDeviceInAnotherSocketByTheSameId) {
    UsbMidiGadget device({});
    UsbMidiGadget before({.product = "Zwolk"});
    device.plug();
    const std::int32_t id = listed("Tormelk MIDI 1").uniqueID();
    device.unplug();
    before.plug();
    device.plug();
    EndpointLayer later;
    ASSERT_NE(later.destination("Tormelk MIDI 1"), nullptr);
    EXPECT_EQ(later.destination("Tormelk MIDI 1")->uniqueID(), id);
}

TEST_F(Unplugging, ADeadDeviceThatIsPluggedInAnewWorksAgain) {
    UserSpaceMidiDevice device({});
    device.plug();
    midi::ZQMIDIRealDestination& port = listed("Tormelk Port");
    device.stopTaking();
    for (int block = 0; block < 100 && port.isOnline(); ++block) {
        send(port, sysEx(254));
    }
    EXPECT_TRUE(port.isOffline());
    device.unplug();
    device.goOnTaking();
    layer.run(100ms);
    device.received().forget();
    device.plug();
    ASSERT_TRUE(comes(port));
    send(port, sysEx(254));
    EXPECT_EQ(device.received().atLeast(254, 5s), sysEx(254));
}

/// Takes a device from the kernel's USB drivers and gives it back, as unplugging does, in a
/// fraction of the time.
class UsbDrivers {
public:
    explicit UsbDrivers(const HostSide& host) {
        // Of the card the parent is the device, perhaps with one of its interfaces in between.
        fs::path device =
            fs::canonical("/sys/class/sound/card" + std::to_string(*host.card()) + "/device");
        if (device.filename().string().find(':') != std::string::npos) {
            device = device.parent_path();
        }
        device_ = device.filename();
    }
    void takeAway() const { writeText("/sys/bus/usb/drivers/usb/unbind", device_); }
    void giveBack() const { writeText("/sys/bus/usb/drivers/usb/bind", device_); }

private:
    std::string device_;
};

/// Bytes that this program has allocated and not freed; always 0 under the address sanitizer, whose
/// leak detector looks for itself.
std::size_t memoryInUse() {
    return mallinfo2().uordblks;
}

std::size_t openDescriptors() {
    const fs::directory_iterator entries("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST_F(Unplugging, FiveHundredTimesLeavesNothingBehind) {
    UsbMidiGadget device({});
    device.plug();
    midi::ZQMIDIRealDestination& port = listed("Tormelk MIDI 1");
    const UsbDrivers drivers(device.host());
    const auto cycle = [&](bool inUse) {
        if (inUse) {
            send(port, {0x90, 1, 2});
        }
        drivers.takeAway();
        ASSERT_TRUE(goes(port));
        drivers.giveBack();
        ASSERT_TRUE(comes(port));
    };
    for (int warmUp = 0; warmUp < 20; ++warmUp) {
        cycle(warmUp % 2 == 0);
        ASSERT_FALSE(HasFatalFailure());
    }
    const std::size_t clients = sequencerClients().size();
    const std::size_t descriptors = openDescriptors();
    const std::size_t memory = memoryInUse();
    const auto endpoints = layer.manager().realDestinations().size();
    for (int time = 0; time < 500; ++time) {
        cycle(time % 2 == 0);
        ASSERT_FALSE(HasFatalFailure()) << "at the cycle " << time;
    }
    EXPECT_EQ(layer.manager().realDestinations().size(), endpoints);
    EXPECT_TRUE(waitUntil([&] { return sequencerClients().size() <= clients; }, 5s));
    EXPECT_TRUE(waitUntil([&] { return openDescriptors() <= descriptors; }, 5s));
    // The smallest block kept for each cycle would be 16,000 bytes, a growing list of handles 7936.
    EXPECT_LT(memoryInUse(), memory + 7000);
}

}  // namespace
}  // namespace kernel
