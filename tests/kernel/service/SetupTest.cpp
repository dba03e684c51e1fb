#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "devices/seldev.h"
#include "kernel/Program.h"
#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/service/OtherProgram.h"
#include "kernel/waitUntil.h"
#include "support/ScriptedDesktop.h"

// What is listed, under which names, in which order.

namespace kernel {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The bus between programs, which the sequencer always has, under the name it is listed by.
const std::string throughPort = "\u21C4 Midi Through Port-0";

/// Runs one of the system's tools, which must succeed.
void runTool(const std::vector<std::string>& command) {
    const ProgramResult result = run(command, 30s);
    EXPECT_EQ(result.status, 0) << command.back() << ": " << result.output;
}

/// Without the sequencer's modules for as long as it lives, or until they are loaded.
class UnloadedSequencer {
public:
    UnloadedSequencer() {
        runTool({"/sbin/modprobe", "-r", "snd-seq-midi", "snd-seq-dummy", "snd-virmidi",
                 "snd-seq-midi-event", "snd-seq"});
    }
    UnloadedSequencer(const UnloadedSequencer&) = delete;
    UnloadedSequencer& operator=(const UnloadedSequencer&) = delete;
    ~UnloadedSequencer() { load(); }

    void load() {
        if (!std::exchange(loaded_, true)) {
            runTool({"/sbin/modprobe", "-a", "snd-seq", "snd-seq-midi", "snd-seq-dummy"});
            runTool({"/sbin/modprobe", "snd-virmidi", "midi_devs=1"});
        }
    }

private:
    bool loaded_ = false;
};

/// Somebody who is no member of any group, for as long as it lives.
class AsNobody {
public:
    AsNobody() { EXPECT_EQ(seteuid(65534), 0); }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() { EXPECT_EQ(seteuid(0), 0); }
};

TEST(Setup, ListsWhatIsThereByDisplayName) {
    UsbMidiGadget zwolk({.product = "Zwolk", .ports = 2});
    UsbMidiGadget tormelk({.product = "tormelk"});
    UserSpaceMidiDevice named({.product = "Aube", .portNames = {"Live Port"}});
    zwolk.plug();
    tormelk.plug();
    named.plug();
    EndpointLayer layer;
    const auto expected =
        ElementsAre("Aube Live Port", "tormelk MIDI 1", "Virtual Raw MIDI 0-0 VirMIDI 0-0",
                    "Zwolk MIDI 1", "Zwolk MIDI 2", throughPort);
    EXPECT_THAT(layer.sourceNames(), expected);
    EXPECT_THAT(layer.destinationNames(), expected);
}

TEST(Setup, FollowsADeviceThatIsPluggedInAndOut) {
    EndpointLayer layer;
    UsbMidiGadget tormelk({});
    tormelk.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    const midi::ZQMIDIRealDestination* const object = layer.destination("Tormelk MIDI 1");
    const std::int32_t id = object->uniqueID();
    EXPECT_NE(id, 0);
    EXPECT_TRUE(object->isOnline());
    tormelk.unplug();
    ASSERT_TRUE(layer.runUntil([&] { return object->isOffline(); }));
    EXPECT_EQ(object->displayName(), "Tormelk MIDI 1 (offline)");
    tormelk.plug();
    ASSERT_TRUE(layer.runUntil([&] { return object->isOnline(); }));
    EXPECT_EQ(layer.destination("Tormelk MIDI 1"), object);
    EXPECT_EQ(object->uniqueID(), id);
}

TEST(Setup, OnlyTheBusBetweenProgramsCountsAsOne) {
    EndpointLayer layer;
    for (const auto& destination : layer.manager().realDestinations()) {
        EXPECT_EQ(destination->isIACBus(), destination->displayName() == throughPort)
            << destination->displayName();
    }
}

TEST(Setup, ListsWhatOtherProgramsOfferUnderTheNameOfThePort) {
    const OtherProgram player("Player", {"out=read"});
    const OtherProgram synthesizer("Synthesizer", {"in=write", "both=read,write"});
    EndpointLayer layer;
    EXPECT_NE(layer.source("out"), nullptr);
    EXPECT_EQ(layer.destination("out"), nullptr);
    EXPECT_NE(layer.destination("in"), nullptr);
    EXPECT_EQ(layer.source("in"), nullptr);
    EXPECT_NE(layer.source("both"), nullptr);
    EXPECT_NE(layer.destination("both"), nullptr);
    EXPECT_FALSE(layer.destination("in")->isIACBus());
}

TEST(Setup, ListsNothingThatIsHiddenOrCannotBeSubscribedToOrIsTheSystemsOwn) {
    const OtherProgram other("Other", {"hidden=hidden", "half=half"});
    EndpointLayer layer;
    const auto expected = ElementsAre("Virtual Raw MIDI 0-0 VirMIDI 0-0", throughPort);
    EXPECT_THAT(layer.sourceNames(), expected);
    EXPECT_THAT(layer.destinationNames(), expected);
}

TEST(Setup, TellsTheProcessThatOwnsAPortAndThatADeviceHasNone) {
    const OtherProgram other("Other", {"in=write"});
    EndpointLayer layer;
    ASSERT_NE(layer.destination("in"), nullptr);
    std::int32_t owner = 0;
    EXPECT_EQ(layer.service.MIDIObjectGetIntegerProperty(layer.destination("in")->midiEndpointRef(),
                                                         "ZQMIDIOwnerPID", &owner),
              platform::noErr);
    EXPECT_EQ(owner, other.process());
    EXPECT_EQ(layer.service.MIDIObjectGetIntegerProperty(
                  layer.destination(throughPort)->midiEndpointRef(), "ZQMIDIOwnerPID", &owner),
              platform::kMIDIUnknownProperty);
}

TEST(Setup, ABurstOfHundredsOfPortsIsOneChange) {
    EndpointLayer layer;
    {
        const OtherProgram other("Many", {"port=write*250"});
        // Nobody has told the program before it looks.
        layer.run(500ms);
        EXPECT_EQ(layer.setupChanges, 1);
        EXPECT_THAT(layer.destinationNames(), SizeIs(252));
    }
    layer.run(500ms);
    EXPECT_EQ(layer.setupChanges, 2);
    EXPECT_EQ(layer.destination("port 100"), nullptr);
    ASSERT_NE(layer.destination("port 100 (offline)"), nullptr);
    EXPECT_TRUE(layer.destination("port 100 (offline)")->isOffline());
}

TEST(Setup, MoreAnnouncementsThanTheKernelKeepsLoseNoPort) {
    EndpointLayer layer;
    const OtherProgram other("Other", {"early=write"});
    for (int client = 0; client < 1500; ++client) {
        const platform::alsa::Sequencer passing =
            platform::alsa::openSequencer("Passing", SND_SEQ_OPEN_DUPLEX);
        ASSERT_NE(passing, nullptr);
    }
    const OtherProgram last("Last", {"late=write"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("late") != nullptr; }));
    EXPECT_NE(layer.destination("early"), nullptr);
}

TEST(Setup, WhatThisProcessDoesIsNoChange) {
    EndpointLayer layer;
    midi::ZQMIDIRealDestination& through = *layer.destination(throughPort);
    const int user = 0;
    for (int time = 0; time < 10; ++time) {
        send(through, {0x90, 1, 2});
        layer.source(throughPort)->addSender(&user);
        layer.source(throughPort)->removeSender(&user);
    }
    layer.run(300ms);
    EXPECT_EQ(layer.setupChanges, 0);
}

TEST(Setup, WithoutTheSequencerTheListsAreEmptyAndItIsFoundByItselfWhenItIsBack) {
    const fs::path device = "/dev/snd/seq";
    const fs::path aside = "/dev/snd/seq.aside";
    fs::rename(device, aside);
    EndpointLayer layer;
    EXPECT_THAT(layer.sourceNames(), IsEmpty());
    EXPECT_THAT(layer.destinationNames(), IsEmpty());
    layer.service.rescan();
    EXPECT_THAT(layer.destinationNames(), IsEmpty());
    fs::rename(aside, device);
    EXPECT_TRUE(layer.runUntil([&] { return !layer.destinationNames().empty(); }));
    EXPECT_EQ(layer.setupChanges, 1);
    // From now on it is followed.
    const OtherProgram other("Other", {"in=write"});
    EXPECT_TRUE(layer.runUntil([&] { return layer.destination("in") != nullptr; }));
}

TEST(Setup, TheDeviceDialogTellsOfASequencerThatIsNotLoadedAndShowsItOnceItIs) {
    UnloadedSequencer unloaded;
    EndpointLayer layer;
    support::ScriptedDesktop desktop;
    devices::seldevChoice choice(layer.process);
    desktop.onModal<devices::seldev>([&](devices::seldev& dialog) {
        EXPECT_EQ(dialog.hint.stringValue(),
                  "The computer's MIDI sequencer is not loaded. To load it, run this in a "
                  "terminal; it is noticed here by itself:\nsudo modprobe snd-seq");
        EXPECT_EQ(dialog.combo_out.numberOfItems(), 0);
        unloaded.load();
        EXPECT_TRUE(layer.runUntil([&] { return dialog.combo_out.numberOfItems() == 2; }));
        EXPECT_EQ(dialog.hint.stringValue(), "");
        dialog.cancel();
    });
    devices::seldev dialog(choice, desktop);
    (void)desktop.runModalForWindow(dialog);
}

TEST(Setup, TheDeviceDialogTellsOfASequencerThatIsNotAllowedAndShowsItOnceItIs) {
    const fs::path device = "/dev/snd/seq";
    const fs::perms before = fs::status(device).permissions();
    fs::permissions(device, fs::perms::owner_read | fs::perms::owner_write);
    auto nobody = std::make_optional<AsNobody>();
    EndpointLayer layer;
    support::ScriptedDesktop desktop;
    devices::seldevChoice choice(layer.process);
    desktop.onModal<devices::seldev>([&](devices::seldev& dialog) {
        EXPECT_EQ(dialog.hint.stringValue(),
                  "This program is not allowed to use the computer's MIDI. Members of the group "
                  "\"audio\" are allowed to. To become one, run this in a terminal, then log out "
                  "and log in again:\nsudo usermod -aG audio $USER");
        nobody.reset();
        fs::permissions(device, fs::perms::all);
        nobody.emplace();
        EXPECT_TRUE(layer.runUntil([&] { return dialog.combo_out.numberOfItems() == 2; }));
        EXPECT_EQ(dialog.hint.stringValue(), "");
        dialog.cancel();
    });
    devices::seldev dialog(choice, desktop);
    (void)desktop.runModalForWindow(dialog);
    nobody.reset();
    fs::permissions(device, before);
}

TEST(Setup, WhatWasUnpluggedBeforeTheManagerWasMadeIsNotListedAtAll) {
    UsbMidiGadget tormelk({});
    tormelk.plug();
    platform::alsa::AlsaMidiService service("Tormelk Wyro");
    EXPECT_TRUE(service.state().hasDestination);  // a plain look
    tormelk.unplug();
    const auto isGone = [] { return sequencerClientsNamed("Tormelk").empty(); };
    EXPECT_TRUE(waitUntil(isGone, 5s));
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process(service, centre);
    for (const auto& destination : process.sharedInstance().realDestinations()) {
        EXPECT_EQ(destination->displayName().find("Tormelk"), std::string::npos);
    }
}

TEST(Setup, TheDeviceDialogShowsASequencerThatHasComeSince) {
    const fs::path device = "/dev/snd/seq";
    const fs::path aside = "/dev/snd/seq.aside";
    fs::rename(device, aside);
    EndpointLayer layer;
    support::ScriptedDesktop desktop;
    devices::seldevChoice choice(layer.process);
    fs::rename(aside, device);
    int outputs = -1;
    desktop.onModal<devices::seldev>([&](devices::seldev& dialog) {
        outputs = dialog.combo_out.numberOfItems();
        dialog.cancel();
    });
    devices::seldev dialog(choice, desktop);
    (void)desktop.runModalForWindow(dialog);
    EXPECT_EQ(outputs, 2);
}

TEST(Setup, ADeviceThatIsPulledOutDuringTheDeviceDialogIsShownAsOfflineThere) {
    UsbMidiGadget tormelk({});
    tormelk.plug();
    EndpointLayer layer;
    support::ScriptedDesktop desktop;
    devices::seldevChoice choice(layer.process);
    desktop.onModal<devices::seldev>([&](devices::seldev& dialog) {
        const auto shows = [&](const std::string& name) {
            return dialog.combo_out.itemObjectValueAtIndex(0) == name;
        };
        EXPECT_TRUE(shows("Tormelk MIDI 1"));
        dialog.combo_out.choose(0);
        tormelk.unplug();
        EXPECT_TRUE(layer.runUntil([&] { return shows("Tormelk MIDI 1 (offline)"); }));
        EXPECT_EQ(dialog.combo_out.indexOfSelectedItem(), 0);
        dialog.ok();
    });
    devices::seldev dialog(choice, desktop);
    (void)desktop.runModalForWindow(dialog);
    ASSERT_NE(choice.OutDevice(), nullptr);
    EXPECT_TRUE(choice.OutDevice()->isOffline());
}

}  // namespace
}  // namespace kernel
