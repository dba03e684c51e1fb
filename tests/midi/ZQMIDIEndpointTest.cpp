#include "midi/ZQMIDIEndpoint.h"

#include <compare>

#include "midi/MidiTest.h"
#include "support/AbsentMidiService.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An endpoint that writes down when its I/O is started and stopped.
class ProbeEndpoint final : public ZQMIDIEndpoint {
public:
    using ZQMIDIEndpoint::ZQMIDIEndpoint;
    void startIO() override { io.emplace_back("start"); }
    void stopIO() override { io.emplace_back("stop"); }
    std::vector<std::string> io;
};

class Endpoint : public MidiTest {
protected:
    void TearDown() override {
        probe.reset();
        MidiTest::TearDown();
    }
    ZQMIDIEndpoint endpointOn(const platform::software::Object& object) {
        return ZQMIDIEndpoint(manager(), object.handle());
    }
    std::unique_ptr<ProbeEndpoint> probe = std::make_unique<ProbeEndpoint>(manager());
};

TEST_F(Endpoint, BeginsAsNothing) {
    const ZQMIDIEndpoint endpoint(manager());
    EXPECT_EQ(endpoint.midiEndpointRef(), 0U);
    EXPECT_EQ(endpoint.name(), std::nullopt);
    EXPECT_EQ(endpoint.uniqueID(), 0);
    EXPECT_FALSE(endpoint.isInUse());
    EXPECT_FALSE(endpoint.ioIsRunning());
}

TEST_F(Endpoint, KeepsTheNameAndUniqueIDItIsGiven) {
    const ZQMIDIEndpoint endpoint(manager(), "Tormelk", -7);
    EXPECT_EQ(endpoint.name(), "Tormelk");
    EXPECT_EQ(endpoint.uniqueID(), -7);
    EXPECT_EQ(endpoint.midiEndpointRef(), 0U);
}

TEST_F(Endpoint, TakesItsPropertiesFromItsHandle) {
    const Source& in = service.addDevice("Tormelk").addSource("Port 1");
    const ZQMIDIEndpoint endpoint(manager(), in.handle());
    EXPECT_EQ(endpoint.midiEndpointRef(), in.handle());
    EXPECT_EQ(endpoint.name(), "Tormelk Port 1");
    EXPECT_EQ(endpoint.uniqueID(), in.uniqueID());
    EXPECT_EQ(endpoint.displayName(), "Tormelk Port 1");
}

TEST_F(Endpoint, ReadsUniqueIDThenNameThenConnections) {
    const Source& in = service.addSource("Port 1");
    std::vector<std::string> order;
    service.onCall([&](const Call& call) {
        if (call.operation.find("Property") != std::string_view::npos) {
            order.emplace_back(call.detail);
        }
        return noErr;
    });
    const ZQMIDIEndpoint endpoint(manager(), in.handle());
    EXPECT_THAT(order, ElementsAre("uniqueID", "name", "connUniqueID"));
}

TEST_F(Endpoint, KeepsItsUniqueIDWhenThatCannotBeRead) {
    Source& in = service.addSource("Port 1");
    ZQMIDIEndpoint endpoint(manager(), in.handle());
    const std::int32_t id = endpoint.uniqueID();
    in.removeProperty(platform::kMIDIPropertyUniqueID);
    in.setName("Port 2");
    endpoint.setPropertiesFromMIDIEndpoint();
    EXPECT_EQ(endpoint.uniqueID(), id);
    EXPECT_EQ(endpoint.name(), "Port 2");
}

TEST_F(Endpoint, LosesItsNameWhenThatCannotBeRead) {
    Source& in = service.addSource("Port 1");
    ZQMIDIEndpoint endpoint(manager(), in.handle());
    in.removeProperty(platform::kMIDIPropertyName);
    endpoint.setPropertiesFromMIDIEndpoint();
    EXPECT_EQ(endpoint.name(), std::nullopt);
    EXPECT_EQ(endpoint.displayName(), "UNKNOWN DEVICE");
}

TEST_F(Endpoint, WithoutAHandleReadsNothing) {
    ZQMIDIEndpoint endpoint(manager(), "Tormelk", 7);
    bool called = false;
    service.onCall([&](const Call&) {
        called = true;
        return noErr;
    });
    endpoint.setPropertiesFromMIDIEndpoint();
    EXPECT_FALSE(called);
    EXPECT_EQ(endpoint.name(), "Tormelk");
}

TEST_F(Endpoint, HasADescriptorOfItsNameAndUniqueID) {
    const ZQMIDIEndpointDescriptor descriptor =
        ZQMIDIEndpoint(manager(), "Tormelk", 7).descriptor();
    EXPECT_EQ(descriptor.name(), "Tormelk");
    EXPECT_EQ(descriptor.uniqueID(), 7);
}

TEST_F(Endpoint, IsNamedAfterTheDeviceConnectedToIt) {
    Source& in = service.addDevice("Interface").addSource("Port 1");
    const Device& keyboard = service.addExternalDevice("Keyboard");
    in.setConnectedUniqueIDs(std::vector{keyboard.uniqueID()});
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard");
    EXPECT_EQ(endpointOn(in).name(), "Interface Port 1");
}

/// Finds what is plugged into a port, and says in the same answer that it does not.
class ContradictingService final : public support::AbsentMidiService {
public:
    platform::OSStatus MIDIObjectGetDataProperty(platform::MIDIObjectRef, std::string_view,
                                                 std::vector<std::uint8_t>* value) override {
        *value = {0, 0, 0, 7};
        return noErr;
    }
    platform::OSStatus MIDIObjectFindByUniqueID(std::int32_t, platform::MIDIObjectRef* object,
                                                platform::MIDIObjectType* type) override {
        *object = keyboard;
        *type = platform::kMIDIObjectType_ExternalDevice;
        return platform::kMIDIObjectNotFound;
    }
    platform::OSStatus MIDIObjectGetStringProperty(platform::MIDIObjectRef object, std::string_view,
                                                   std::string* value) override {
        *value = object == keyboard ? "Keyboard" : "Port 1";
        return noErr;
    }

private:
    static constexpr platform::MIDIObjectRef keyboard = 9;
};

TEST(EndpointOfAContradictingService, IsNamedAfterWhatTheLookUpFindsWhateverCodeItAnswers) {
    ContradictingService service;
    platform::NotificationCentre centre;
    ZQMIDIProcess process(service, centre);
    EXPECT_EQ(ZQMIDIEndpoint(process.sharedInstance(), 1).displayName(), "Keyboard");
}

TEST_F(Endpoint, IsNamedAfterAllConnectedDevicesInTheOrderOfTheData) {
    Source& in = service.addSource("Port 1");
    const Device& a = service.addExternalDevice("A");
    const Device& b = service.addExternalDevice("B");
    in.setConnectedUniqueIDs(std::vector{b.uniqueID(), a.uniqueID()});
    EXPECT_EQ(endpointOn(in).displayName(), "B, A");
}

TEST_F(Endpoint, IsNamedAfterConnectedPortsByTheirComposedName) {
    Source& in = service.addSource("Port 1");
    Device& keyboard = service.addExternalDevice("Keyboard");
    const Source& keys = keyboard.addSource("Keys");
    const Destination& display = keyboard.addDestination("Keyboard Display");
    in.setConnectedUniqueIDs(std::vector{keys.uniqueID(), display.uniqueID()});
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard Keys, Keyboard Display");
}

TEST_F(Endpoint, IsNamedByItselfWithNothingConnected) {
    Source& in = service.addDevice("Interface").addSource("Port 1");
    in.setConnectedUniqueIDs({});
    EXPECT_EQ(endpointOn(in).displayName(), "Interface Port 1");
}

TEST_F(Endpoint, IsNamedByItselfWhenWhatIsConnectedIsNotExternalOrUnknown) {
    Source& in = service.addSource("Port 1");
    Device& device = service.addDevice("Tormelk");
    const Source& other = device.addSource("other");
    in.setConnectedUniqueIDs(std::vector{0, 987654, device.uniqueID(), other.uniqueID(), 0});
    EXPECT_EQ(endpointOn(in).displayName(), "Port 1");
}

TEST_F(Endpoint, ReadsConnectedIDsAsBigEndian) {
    Source& in = service.addSource("Port 1");
    Device& keyboard = service.addExternalDevice("Keyboard");
    keyboard.setUniqueID(0x01020304);
    in.setDataProperty(platform::kMIDIPropertyConnectionUniqueID, {1, 2, 3, 4});
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard");
    keyboard.setUniqueID(-2);
    in.setDataProperty(platform::kMIDIPropertyConnectionUniqueID, {0xFF, 0xFF, 0xFF, 0xFE});
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard");
}

TEST_F(Endpoint, SkipsAConnectedIDOfZeroAndGoesOn) {
    Source& in = service.addSource("Port 1");
    const Device& keyboard = service.addExternalDevice("Keyboard");
    in.setConnectedUniqueIDs(std::vector{0, keyboard.uniqueID()});
    std::vector<std::string> finds;
    service.onCall([&](const Call& call) {
        if (call.operation == "MIDIObjectFindByUniqueID") {
            finds.emplace_back(call.operation);
        }
        return noErr;
    });
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard");
    EXPECT_EQ(finds.size(), 1U);
}

TEST_F(Endpoint, ReadsNothingBehindTheLastWholeID) {
    Source& in = service.addSource("Port 1");
    service.addExternalDevice("Keyboard").setUniqueID(0x01020304);
    in.setDataProperty(platform::kMIDIPropertyConnectionUniqueID, {1, 2, 3});
    EXPECT_EQ(endpointOn(in).displayName(), "Port 1");
    in.setDataProperty(platform::kMIDIPropertyConnectionUniqueID, {1, 2, 3, 4, 1, 2, 3});
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard");
}

TEST_F(Endpoint, LeavesOutConnectedDevicesWithoutAName) {
    Source& in = service.addSource("Port 1");
    Device& nameless = service.addExternalDevice("");
    nameless.removeProperty(platform::kMIDIPropertyName);
    Source& namelessPort = service.addExternalDevice("").addSource("");
    const Device& keyboard = service.addExternalDevice("Keyboard");
    service.fail("MIDIEntityGetDevice", -1);
    namelessPort.removeProperty(platform::kMIDIPropertyName);
    in.setConnectedUniqueIDs(std::vector{nameless.uniqueID(), namelessPort.uniqueID()});
    EXPECT_EQ(endpointOn(in).displayName(), "Port 1");
    in.setConnectedUniqueIDs(std::vector{nameless.uniqueID(), keyboard.uniqueID()});
    EXPECT_EQ(endpointOn(in).displayName(), "Keyboard");
}

TEST_F(Endpoint, WithoutAHandleIsOfflineAndNotABus) {
    const ZQMIDIEndpoint endpoint(manager(), "Tormelk", 7);
    EXPECT_TRUE(endpoint.isOffline());
    EXPECT_FALSE(endpoint.isOnline());
    EXPECT_FALSE(endpoint.isIACBus());
    EXPECT_FALSE(endpoint.isOnlineOrInUse());
}

TEST_F(Endpoint, SaysBehindItsDisplayNameThatItIsOffline) {
    Source& in = service.addSource("Port 1");
    const ZQMIDIEndpoint endpoint(manager(), in.handle());
    EXPECT_EQ(endpoint.displayName(), "Port 1");
    in.setIntegerProperty(platform::kMIDIPropertyOffline, 1);
    EXPECT_EQ(endpoint.displayName(),
              "Port 1 (offline)");  // at the moment of asking
    in.setIntegerProperty(platform::kMIDIPropertyOffline, 0);
    EXPECT_EQ(endpoint.displayName(), "Port 1");
}

TEST_F(Endpoint, ThatWasNeverBoundIsShownByItsName) {
    EXPECT_EQ(ZQMIDIEndpoint(manager(), "Tormelk", 7).displayName(), "Tormelk (offline)");
    EXPECT_EQ(ZQMIDIEndpoint(manager()).displayName(), "UNKNOWN DEVICE (offline)");
}

TEST_F(Endpoint, IsOfflineOnlyWhenTheSystemSaysSo) {
    Source& in = service.addSource("Port 1");
    const ZQMIDIEndpoint endpoint(manager(), in.handle());
    EXPECT_TRUE(endpoint.isOnline());  // no such property
    in.setIntegerProperty(platform::kMIDIPropertyOffline, 2);
    EXPECT_TRUE(endpoint.isOffline());
    service.fail("MIDIObjectGetIntegerProperty", -1, platform::kMIDIPropertyOffline);
    EXPECT_TRUE(endpoint.isOnline());
}

TEST_F(Endpoint, IsABusWhenItsDevicesDriverIsExactlyThat) {
    Device& device = service.addDevice("Bus");
    const Source& in = device.addSource("Port 1");
    const ZQMIDIEndpoint endpoint(manager(), in.handle());
    EXPECT_FALSE(endpoint.isIACBus());
    device.setStringProperty("driver", "com.apple.AppleMIDIIACDriver");
    EXPECT_TRUE(endpoint.isIACBus());
    for (const char* step :
         {"MIDIEndpointGetEntity", "MIDIEntityGetDevice", "MIDIObjectGetStringProperty"}) {
        service.fail(step, -1);
        EXPECT_FALSE(endpoint.isIACBus()) << step;
        service.fail(step, noErr);
    }
    device.setStringProperty("driver", "com.apple.applemidiiacdriver");
    EXPECT_FALSE(endpoint.isIACBus());
}

TEST_F(Endpoint, IsRenamedInTheSystemAndHere) {
    const Destination& out = service.addDevice("Tormelk").addDestination("Port 1");
    ZQMIDIEndpoint endpoint(manager(), out.handle());
    EXPECT_TRUE(endpoint.setName("Mine"));
    EXPECT_EQ(out.stringProperty(platform::kMIDIPropertyName), "Mine");
    EXPECT_EQ(endpoint.name(), "Mine");
    EXPECT_EQ(endpoint.displayName(), "Mine");
}

TEST_F(Endpoint, KeepsItsNameWhenTheSystemRefuses) {
    const Destination& out = service.addDestination("Port 1");
    ZQMIDIEndpoint endpoint(manager(), out.handle());
    service.fail("MIDIObjectSetStringProperty", -1);
    EXPECT_FALSE(endpoint.setName("Mine"));
    EXPECT_EQ(endpoint.name(), "Port 1");
    EXPECT_EQ(endpoint.displayName(), "Port 1");
}

TEST_F(Endpoint, WithoutAHandleCannotBeChanged) {
    ZQMIDIEndpoint endpoint(manager(), "Tormelk", 7);
    EXPECT_FALSE(endpoint.setName("Mine"));
    EXPECT_FALSE(endpoint.setUniqueID(8));
    EXPECT_EQ(endpoint.name(), "Tormelk");
    EXPECT_EQ(endpoint.uniqueID(), 7);
    EXPECT_EQ(endpoint.displayName(), "Tormelk (offline)");
}

TEST_F(Endpoint, TakesAUniqueIDThatIsFree) {
    const Destination& out = service.addDestination("Port 1");
    const Destination& other = service.addDestination("Port 2");
    ZQMIDIEndpoint endpoint(manager(), out.handle());
    EXPECT_FALSE(endpoint.setUniqueID(other.uniqueID()));
    EXPECT_EQ(endpoint.uniqueID(), out.uniqueID());
    EXPECT_TRUE(endpoint.setUniqueID(77));
    EXPECT_EQ(endpoint.uniqueID(), 77);
    EXPECT_EQ(out.uniqueID(), 77);
}

TEST_F(Endpoint, ChangesTheSystemWithTheManagersNotificationsOff) {
    const Destination& out = service.addDestination("Port 1");
    ZQMIDIEndpoint endpoint(manager(), out.handle());
    int posted = 0;
    const auto observer = centre.addObserver(ZQMIDISetupChanged, [&](const void*) { ++posted; });
    service.onCall([&](const Call& call) {
        if (call.operation.starts_with("MIDIObjectSet")) {
            service.deliverNotification(1);  // as a system that reports this very change
        }
        return noErr;
    });
    EXPECT_TRUE(endpoint.setName("Mine"));
    EXPECT_TRUE(endpoint.setUniqueID(77));
    EXPECT_FALSE(ZQMIDIEndpoint(manager(), "none", 7).setName("Mine"));
    EXPECT_EQ(posted, 0);
    service.deliverNotification(1);  // and on again, also after a refusal
    EXPECT_EQ(posted, 1);
}

TEST_F(Endpoint, IsOrderedByDisplayNameWithItsSuffix) {
    const Source& in = service.addSource("ALPHA");
    const ZQMIDIEndpoint online(manager(), in.handle());
    const ZQMIDIEndpoint offline(manager(), "alpha", 1);
    const ZQMIDIEndpoint other(manager(), "BETA", 2);
    EXPECT_TRUE(std::is_lt(online.compareByDisplayName(offline)));
    EXPECT_TRUE(std::is_gt(offline.compareByDisplayName(online)));
    EXPECT_TRUE(std::is_lt(offline.compareByDisplayName(other)));
    EXPECT_TRUE(std::is_eq(offline.compareByDisplayName(ZQMIDIEndpoint(manager(), "Alpha", 3))));
}

TEST_F(Endpoint, IsInUseWhileItHasASenderOrAReceiver) {
    Recorder receiver;
    probe->addSender(this);
    EXPECT_TRUE(probe->isInUse());
    EXPECT_TRUE(probe->isOnlineOrInUse());
    probe->addReceiver(&receiver);
    probe->removeSender(this);
    EXPECT_TRUE(probe->isInUse());
    probe->removeReceiver(&receiver);
    EXPECT_FALSE(probe->isInUse());
    EXPECT_FALSE(probe->isOnlineOrInUse());
}

TEST_F(Endpoint, StartsOrStopsItsIOAfterEveryChangeOfItsUsers) {
    Recorder receiver;
    probe->addSender(this);
    probe->addReceiver(&receiver);
    probe->removeSender(this);
    probe->removeReceiver(&receiver);
    EXPECT_THAT(probe->io, ElementsAre("start", "start", "start", "stop"));
}

TEST_F(Endpoint, HasEachUserOnce) {
    Recorder receiver;
    probe->addReceiver(&receiver);
    probe->addReceiver(&receiver);
    probe->removeReceiver(&receiver);
    EXPECT_FALSE(probe->isInUse());
    EXPECT_THAT(probe->io, ElementsAre("start", "start", "stop"));
    probe->addSender(this);
    probe->addSender(this);
    probe->removeSender(this);
    EXPECT_FALSE(probe->isInUse());
}

TEST_F(Endpoint, TakesTheRemovalOfAnAbsentUserCalmly) {
    Recorder receiver;
    probe->removeReceiver(&receiver);
    probe->removeSender(this);
    probe->removeReceiver(nullptr);
    probe->addReceiver(nullptr);
    EXPECT_FALSE(probe->isInUse());
    EXPECT_THAT(probe->io, ElementsAre("stop", "stop", "stop", "stop"));
}

TEST_F(Endpoint, KnowsUsersByIdentity) {
    Recorder one;
    Recorder two;
    probe->addReceiver(&one);
    probe->addReceiver(&two);
    probe->removeReceiver(&one);
    EXPECT_TRUE(probe->isInUse());
    probe->removeReceiver(&two);
    EXPECT_FALSE(probe->isInUse());
}

TEST_F(Endpoint, DoesNothingWithAListAsTheBase) {
    Recorder receiver;
    probe->addReceiver(&receiver);
    probe->processMIDIPacketList(*platform::makeOnePacketList(noteOn), this);
    EXPECT_THAT(receiver.lists, IsEmpty());
    probe->removeReceiver(&receiver);
}

}  // namespace
}  // namespace midi
