#include "midi/ZQMIDIManager.h"

#include "midi/MidiTest.h"
#include "midi/ownEndpoints.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Manager : public MidiTest {
protected:
    /// From now on, `asked` takes every operation that lists endpoints.
    void recordListing() {
        service.onCall([this](const Call& call) {
            if (call.operation.starts_with("MIDIGet")) {
                asked.emplace_back(call.operation);
            }
            return noErr;
        });
    }
    std::vector<std::string> asked;

    /// Counts what is posted, from the manager's first moment on.
    platform::NotificationCentre::Registration counter =
        centre.addObserver(ZQMIDISetupChanged, [this](const void* object) {
            ++posted;
            about = object;
        });
    int posted = 0;
    const void* about = nullptr;
};

TEST_F(Manager, CreatesItsClientUnderItsName) {
    std::vector<std::string> names;
    service.onCall([&](const Call& call) {
        if (call.operation == "MIDIClientCreate") {
            names.emplace_back(call.detail);
        }
        return noErr;
    });
    EXPECT_NE(manager().midiClientRef(), 0U);
    EXPECT_THAT(names, ElementsAre("ZQMIDIManager"));
}

TEST_F(Manager, HasEmptyListsWithoutDevices) {
    EXPECT_THAT(manager().realSources(), IsEmpty());
    EXPECT_THAT(manager().realDestinations(), IsEmpty());
    EXPECT_THAT(manager().sourceDevices(), IsEmpty());
    EXPECT_THAT(manager().destinationDevices(), IsEmpty());
    EXPECT_THAT(manager().realSourcesOnlineOrInUse(), IsEmpty());
    EXPECT_THAT(manager().realDestinationsOnlineOrInUse(), IsEmpty());
}

TEST_F(Manager, ListsTheEndpointsThatAreThereAtItsCreation) {
    Device& device = service.addDevice("Tormelk");
    device.addSource("Port 1");
    device.addDestination("Port 1");
    device.addDestination("Port 2");
    EXPECT_THAT(sourceNames(), ElementsAre("Tormelk Port 1"));
    EXPECT_THAT(destinationNames(), ElementsAre("Tormelk Port 1", "Tormelk Port 2"));
    EXPECT_EQ(posted, 0);
}

TEST_F(Manager, NeverFillsTheDeviceLists) {
    service.addDevice("Tormelk").addSource("Port 1");
    manager().updateSourceDevices();
    manager().updateDestinationDevices();
    EXPECT_THAT(manager().sourceDevices(), IsEmpty());
    EXPECT_THAT(manager().destinationDevices(), IsEmpty());
}

TEST_F(Manager, RefreshesSourcesBeforeDestinations) {
    recordListing();
    manager();
    EXPECT_THAT(asked, ElementsAre("MIDIGetNumberOfSources", "MIDIGetNumberOfDestinations"));
}

TEST_F(Manager, RefreshesSourcesBeforeDestinationsWhenTheSetupChanges) {
    manager();
    recordListing();
    service.deliverNotification(1);
    EXPECT_THAT(asked, ElementsAre("MIDIGetNumberOfSources", "MIDIGetNumberOfDestinations"));
}

TEST_F(Manager, AsksForAsManyEndpointsAsTheServiceCounts) {
    service.addSource("in");
    service.addDestination("out 1");
    service.addDestination("out 2");
    recordListing();
    manager();
    EXPECT_THAT(
        asked, ElementsAre("MIDIGetNumberOfSources", "MIDIGetSource", "MIDIGetNumberOfDestinations",
                           "MIDIGetDestination", "MIDIGetDestination"));
}

TEST_F(Manager, WithoutAClientHasEmptyListsAndOpensNoPorts) {
    service.fail("MIDIClientCreate", platform::kMIDIServerStartErr);
    service.addDevice("Tormelk").addDestination("Port 1");
    EXPECT_EQ(manager().midiClientRef(), 0U);
    EXPECT_THAT(manager().realSources(), IsEmpty());
    EXPECT_THAT(manager().realDestinations(), IsEmpty());
}

TEST_F(Manager, SortsByDisplayNameIgnoringCase) {
    for (const char* name : {"beta", "Alpha", "alpine", "Gamma", "ALPHA"}) {
        service.addDestination(name);
        service.addSource(name);
    }
    // Equal names keep their order.
    EXPECT_THAT(destinationNames(), ElementsAre("Alpha", "ALPHA", "alpine", "beta", "Gamma"));
    EXPECT_THAT(sourceNames(), ElementsAre("Alpha", "ALPHA", "alpine", "beta", "Gamma"));
}

TEST_F(Manager, SortsOfflineEndpointsByTheirWholeDisplayName) {
    Destination& gone = service.addDestination("A");
    service.addDestination("A (a)");
    service.addDestination("A (z)");
    manager();
    gone.unplug();
    service.dispatch();
    EXPECT_THAT(destinationNames(), ElementsAre("A (a)", "A (offline)", "A (z)"));
}

TEST_F(Manager, SortsTheWholeListAnewAtEveryRefresh) {
    service.addDestination("m");
    Destination& renamed = service.addDestination("z");
    manager();
    renamed.setName("a");
    service.addDestination("b");
    service.dispatch();
    EXPECT_THAT(destinationNames(), ElementsAre("a", "b", "m"));
}

TEST_F(Manager, FollowsTheSetupAndSaysSo) {
    const auto& live = manager().realDestinations();
    service.addDestination("New");
    EXPECT_THAT(live, IsEmpty());
    service.dispatch();
    ASSERT_EQ(live.size(), 1U);  // the live list itself
    EXPECT_EQ(live[0]->displayName(), "New");
    EXPECT_EQ(posted, 1);
    EXPECT_EQ(about, &manager());
}

TEST_F(Manager, PostsAfterBothListsAreRefreshed) {
    std::size_t seen = 0;
    const auto observer = centre.addObserver(ZQMIDISetupChanged, [&](const void*) {
        seen = manager().realSources().size() + manager().realDestinations().size();
    });
    manager();
    service.addSource("in");
    service.addDestination("out");
    service.dispatch();
    EXPECT_EQ(seen, 2U);
}

TEST_F(Manager, KeepsAnUnpluggedEndpointAsOffline) {
    Device& device = service.addDevice("Tormelk");
    device.addDestination("Port 1");
    const ZQMIDIRealDestination* const object = manager().realDestinations().at(0).get();
    device.unplug();
    service.dispatch();
    ASSERT_EQ(manager().realDestinations().size(), 1U);
    EXPECT_EQ(manager().realDestinations()[0].get(), object);
    EXPECT_TRUE(object->isOffline());
    EXPECT_EQ(object->midiEndpointRef(), 0U);
    EXPECT_THAT(destinationNames(), ElementsAre("Tormelk Port 1 (offline)"));
}

TEST_F(Manager, FindsAPluggedEndpointAgainByUniqueID) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    const ZQMIDIRealSource* const object = &real(in);
    device.unplug();
    service.dispatch();
    in.setName("Port 7");  // the name does not matter then
    device.plug();
    service.dispatch();
    EXPECT_EQ(&real(in), object);
    EXPECT_TRUE(object->isOnline());
    EXPECT_THAT(sourceNames(), ElementsAre("Tormelk Port 7"));
}

TEST_F(Manager, FindsAPluggedEndpointAgainByNameWhenItsUniqueIDChanged) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    Destination& out = device.addDestination("Port 1");
    const ZQMIDIRealSource* const source = &real(in);
    const ZQMIDIRealDestination* const destination = &real(out);
    device.unplug();
    service.dispatch();
    in.setUniqueID(801);
    out.setUniqueID(802);
    device.plug();
    service.dispatch();
    EXPECT_EQ(&real(in), source);
    EXPECT_EQ(&real(out), destination);
    EXPECT_EQ(source->uniqueID(), 801);
    EXPECT_EQ(destination->uniqueID(), 802);
    EXPECT_EQ(manager().realSources().size(), 1U);
    EXPECT_EQ(manager().realDestinations().size(), 1U);
}

TEST_F(Manager, FindsAReplugBetweenTwoRefreshesToo) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    const ZQMIDIRealSource* const object = &real(in);
    device.unplug();
    device.plug();
    service.dispatch();
    EXPECT_EQ(&real(in), object);
    EXPECT_EQ(posted, 1);
}

TEST_F(Manager, GivesAnEndpointWithAnotherIDAndNameAnObjectOfItsOwn) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    manager();
    device.unplug();
    in.setUniqueID(801);
    in.setName("Other");
    device.plug();
    service.dispatch();
    EXPECT_THAT(sourceNames(), ElementsAre("Tormelk Other", "Tormelk Port 1 (offline)"));
}

TEST_F(Manager, IgnoresOtherMessages) {
    manager();
    service.addDestination("New");
    for (const std::int32_t message : {0, 2, 3, 4, -1, 257}) {
        service.deliverNotification(message);
    }
    EXPECT_THAT(manager().realDestinations(), IsEmpty());
    EXPECT_EQ(posted, 0);
    service.deliverNotification(1);
    EXPECT_EQ(manager().realDestinations().size(), 1U);
    EXPECT_EQ(posted, 1);
}

TEST_F(Manager, LosesASetupChangeWhileNotificationsAreOff) {
    manager().disableNotifications();
    service.addDestination("New");
    service.dispatch();
    EXPECT_EQ(posted, 0);
    manager().enableNotifications();
    service.dispatch();
    EXPECT_EQ(posted, 0);
    EXPECT_THAT(manager().realDestinations(), IsEmpty());
    service.addDestination("Newer");
    service.dispatch();
    EXPECT_EQ(posted, 1);
    EXPECT_EQ(manager().realDestinations().size(), 2U);
}

TEST_F(Manager, IsOnAgainAfterOneEnableForTwoDisables) {
    manager().disableNotifications();
    manager().disableNotifications();
    manager().enableNotifications();
    service.deliverNotification(1);
    EXPECT_EQ(posted, 1);
}

TEST_F(Manager, IgnoresASetupChangeDuringItsConstruction) {
    bool delivered = false;
    service.addDestination("out");
    service.onCall([&](const Call& call) {
        if (call.operation == "MIDIGetNumberOfDestinations" && !delivered) {
            delivered = true;
            service.deliverNotification(1);
        }
        return noErr;
    });
    manager();
    EXPECT_TRUE(delivered);
    EXPECT_EQ(posted, 0);
    EXPECT_EQ(manager().realDestinations().size(), 1U);
}

TEST_F(Manager, RunsOnceMoreForChangesThatArriveWhileObserversRun) {
    manager();
    int depth = 0;
    int deepest = 0;
    int runs = 0;
    const auto observer = centre.addObserver(ZQMIDISetupChanged, [&](const void*) {
        deepest = std::max(deepest, ++depth);
        if (++runs == 1) {
            service.addDestination("meanwhile");
            service.dispatch();  // as a nested event loop would
            service.addDestination("and another");
            service.dispatch();
            EXPECT_EQ(manager().realDestinations().size(), 0U);
        }
        --depth;
    });
    service.deliverNotification(1);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(runs, 2);  // once for the burst
    EXPECT_EQ(manager().realDestinations().size(), 2U);
}

TEST_F(Manager, RunsAgainWithTheFirstMessage) {
    manager();
    int runs = 0;
    const auto observer = centre.addObserver(ZQMIDISetupChanged, [&](const void*) {
        if (++runs == 1) {
            service.deliverNotification(5);  // even one that means nothing by itself
        }
    });
    service.deliverNotification(1);
    EXPECT_EQ(runs, 2);
}

TEST_F(Manager, HandlesAChangeAfterANestedOne) {
    manager();
    int runs = 0;
    const auto observer = centre.addObserver(ZQMIDISetupChanged, [&](const void*) {
        if (++runs == 1) {
            service.deliverNotification(1);
        }
    });
    service.deliverNotification(1);
    service.deliverNotification(1);
    EXPECT_EQ(runs, 3);
}

TEST_F(Manager, FiltersEndpointsOnlineOrInUse) {
    Destination& used = service.addDestination("a");
    Destination& unused = service.addDestination("b");
    service.addDestination("c");
    Source& goneSource = service.addSource("s");
    service.addSource("t");
    real(used).addSender(this);
    used.unplug();
    unused.unplug();
    goneSource.unplug();
    service.dispatch();
    std::vector<std::string> names;
    for (const ZQMIDIRealDestination* destination : manager().realDestinationsOnlineOrInUse()) {
        names.push_back(destination->displayName());
    }
    EXPECT_THAT(names, ElementsAre("a (offline)", "c"));
    const auto online = manager().realSourcesOnlineOrInUse();
    ASSERT_EQ(online.size(), 1U);
    EXPECT_EQ(online[0]->displayName(), "t");
}

TEST_F(Manager, FindsAnEndpointByItsHandle) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    EXPECT_EQ(manager().realSourceWithMIDIEndpointRef(in.handle()),
              manager().realSources().at(0).get());
    EXPECT_EQ(manager().realDestinationWithMIDIEndpointRef(out.handle()),
              manager().realDestinations().at(0).get());
    EXPECT_EQ(manager().realSourceWithMIDIEndpointRef(out.handle()), nullptr);
    EXPECT_EQ(manager().realDestinationWithMIDIEndpointRef(in.handle()), nullptr);
}

TEST_F(Manager, FindsAnEndpointByDescriptor) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    EXPECT_EQ(&manager().realSourceWithDescriptor({"other name", in.uniqueID()}), &real(in));
    EXPECT_EQ(&manager().realSourceWithDescriptor({"in", 1}), &real(in));
    EXPECT_EQ(&manager().realDestinationWithDescriptor({"other name", out.uniqueID()}), &real(out));
    EXPECT_EQ(&manager().realDestinationWithDescriptor({"out", 1}), &real(out));
}

TEST_F(Manager, AdoptsAnOfflineEndpointForADescriptorThatMatchesNone) {
    service.addSource("z");
    service.addDestination("z");
    ZQMIDIRealSource& source = manager().realSourceWithDescriptor({"a", 5});
    EXPECT_EQ(source.name(), "a");
    EXPECT_EQ(source.uniqueID(), 5);
    EXPECT_TRUE(source.isOffline());
    // At the end, unsorted until the next refresh.
    EXPECT_THAT(sourceNames(), ElementsAre("z", "a (offline)"));
    EXPECT_EQ(&manager().realSourceWithDescriptor({"a", 5}), &source);
    ZQMIDIRealDestination& destination = manager().realDestinationWithDescriptor({"a", 5});
    EXPECT_THAT(destinationNames(), ElementsAre("z", "a (offline)"));
    EXPECT_TRUE(destination.isOffline());
    service.deliverNotification(1);
    EXPECT_THAT(sourceNames(), ElementsAre("a (offline)", "z"));
}

TEST_F(Manager, BindsAnAdoptedEndpointWhenItsDeviceComes) {
    const ZQMIDIRealSource& source = manager().realSourceWithDescriptor({"a", 5});
    Source& in = service.addSource("b");
    in.setUniqueID(5);
    service.dispatch();
    EXPECT_EQ(&real(in), &source);
    EXPECT_EQ(source.name(), "b");
    EXPECT_EQ(manager().realSources().size(), 1U);
}

TEST_F(Manager, ListsOtherProgramsPublishedEndpointsButNotItsOwn) {
    service.addSource("own").setIntegerProperty(ZQMIDIOwnerPID, process->processID());
    service.addSource("other").setIntegerProperty(ZQMIDIOwnerPID, process->processID() + 1);
    service.addDestination("own").setIntegerProperty(ZQMIDIOwnerPID, process->processID());
    service.addDestination("other").setIntegerProperty(ZQMIDIOwnerPID, process->processID() + 1);
    EXPECT_THAT(sourceNames(), ElementsAre("other"));
    EXPECT_THAT(destinationNames(), ElementsAre("other"));
}

TEST_F(Manager, ListsAnEndpointThatCannotBeNamedAsUnknownDevice) {
    service.addSource("").removeProperty(platform::kMIDIPropertyName);
    EXPECT_THAT(sourceNames(), ElementsAre("UNKNOWN DEVICE"));
}

TEST_F(Manager, SurvivesADeviceThatVanishesAtAnyStepOfARefresh) {
    // The device goes just before the n-th operation of the refresh, for every n.
    int step = 0;
    for (int left = -1; left < 0; ++step) {
        ZQMIDIProcess another(service, centre);
        ZQMIDIManager& itsManager = another.sharedInstance();
        Device& device = service.addDevice("Tormelk");
        device.addSource("in");
        device.addDestination("out");
        left = step;
        service.onCall([&](const Call&) {
            if (left-- == 0) {
                device.unplug();
            }
            return noErr;
        });
        service.deliverNotification(1);
        service.onCall(nullptr);
        device.unplug();
        service.dispatch();
        for (const auto& source : itsManager.realSources()) {
            EXPECT_TRUE(source->isOffline()) << step;
        }
        for (const auto& destination : itsManager.realDestinations()) {
            EXPECT_TRUE(destination->isOffline()) << step;
        }
    }
    EXPECT_GT(step, 20);  // one refresh with two ports takes that many at least
}

TEST_F(Manager, NamesTheNotes) {
    EXPECT_EQ(manager().nameOfNote(0), "C-1");
    EXPECT_EQ(manager().nameOfNote(59), "B3");
    EXPECT_EQ(manager().nameOfNote(60), "C4");
    EXPECT_EQ(manager().nameOfNote(69), "A4");
    EXPECT_EQ(manager().nameOfNote(127), "G9");
}

TEST_F(Manager, NamesAllTwelvePitchesWithSharps) {
    std::vector<std::string> names;
    for (std::uint8_t note = 60; note < 73; ++note) {
        names.emplace_back(manager().nameOfNote(note).value_or("none"));
    }
    EXPECT_THAT(names, ElementsAre("C4", "C#4", "D4", "D#4", "E4", "F4", "F#4", "G4", "G#4", "A4",
                                   "A#4", "B4", "C5"));
}

TEST_F(Manager, NamesNoNoteOutsideMidi) {
    EXPECT_EQ(manager().nameOfNote(128), std::nullopt);
    EXPECT_EQ(manager().nameOfNote(255), std::nullopt);
}

}  // namespace
}  // namespace midi
