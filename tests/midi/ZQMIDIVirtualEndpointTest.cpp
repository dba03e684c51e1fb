// What published sources and destinations have in common.

#include "midi/ZQMIDIVirtualEndpoint.h"

#include "midi/MidiTest.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "midi/ownEndpoints.h"

namespace midi {
namespace {

using ::testing::IsEmpty;

template <typename Kind>
class VirtualEndpoint : public MidiTest {
protected:
    std::unique_ptr<Kind> published(std::string_view name) {
        return std::make_unique<Kind>(manager(), name);
    }
    std::int32_t integerProperty(const ZQMIDIEndpoint& endpoint, std::string_view property) {
        std::int32_t value = -1;
        EXPECT_EQ(
            service.MIDIObjectGetIntegerProperty(endpoint.midiEndpointRef(), property, &value),
            noErr);
        return value;
    }
};

using Kinds = ::testing::Types<ZQMIDIVirtualSource, ZQMIDIVirtualDestination>;
TYPED_TEST_SUITE(VirtualEndpoint, Kinds, );

TYPED_TEST(VirtualEndpoint, IsThereUnderItsNameFromConstructionToDestruction) {
    auto endpoint = this->published("Editor");
    EXPECT_EQ(this->service.publishedEndpoints(), 1U);
    EXPECT_EQ(endpoint->name(), "Editor");
    EXPECT_EQ(endpoint->displayName(), "Editor");
    EXPECT_TRUE(endpoint->isOnline());
    endpoint.reset();
    EXPECT_EQ(this->service.publishedEndpoints(), 0U);
}

TYPED_TEST(VirtualEndpoint, GetsAUniqueIDOfTheClockWhenTheSystemGivesNone) {
    const auto endpoint = this->published("Editor");
    EXPECT_EQ(endpoint->uniqueID(), 1'700'000'000);
    EXPECT_EQ(this->integerProperty(*endpoint, "uniqueID"), 1'700'000'000);
}

TYPED_TEST(VirtualEndpoint, GetsAnotherUniqueIDThanOneMadeInTheSameSecond) {
    const auto one = this->published("1");
    const auto two = this->published("2");
    EXPECT_EQ(one->uniqueID(), 1'700'000'000);
    EXPECT_EQ(two->uniqueID(), 1'700'000'001);
}

TYPED_TEST(VirtualEndpoint, KeepsAUniqueIDThatTheSystemGives) {
    this->service.giveUniqueIDsToPublished(true);
    const auto endpoint = this->published("Editor");
    EXPECT_NE(endpoint->uniqueID(), 0);
    EXPECT_NE(endpoint->uniqueID(), 1'700'000'000);
}

TYPED_TEST(VirtualEndpoint, LeavesTheUniqueIDAloneWhenReadingItFailsOtherwise) {
    this->service.fail("MIDIObjectGetIntegerProperty", platform::kMIDIServerStartErr, "uniqueID");
    const auto endpoint = this->published("Editor");
    this->service.fail("MIDIObjectGetIntegerProperty", noErr, "uniqueID");
    std::int32_t id = 0;
    EXPECT_EQ(
        this->service.MIDIObjectGetIntegerProperty(endpoint->midiEndpointRef(), "uniqueID", &id),
        platform::kMIDIUnknownProperty);
    EXPECT_EQ(endpoint->uniqueID(), 0);
}

TYPED_TEST(VirtualEndpoint, IsMarkedAsThisProcesss) {
    const auto endpoint = this->published("Editor");
    EXPECT_EQ(this->integerProperty(*endpoint, "ZQMIDIOwnerPID"), this->process->processID());
    EXPECT_TRUE(ZQMIDIIsEndpointLocalVirtual(*this->process, endpoint->midiEndpointRef()));
}

TYPED_TEST(VirtualEndpoint, IsNeverInTheManagersLists) {
    const auto endpoint = this->published("Editor");
    this->service.deliverNotification(1);
    EXPECT_THAT(this->manager().realSources(), IsEmpty());
    EXPECT_THAT(this->manager().realDestinations(), IsEmpty());
}

TYPED_TEST(VirtualEndpoint, ComesAndGoesUnnoticedByTheManager) {
    this->manager();
    int posted = 0;
    const auto observer =
        this->centre.addObserver(ZQMIDISetupChanged, [&](const void*) { ++posted; });
    // A system that reports every change at once, also this process's own.
    this->service.onCall([&](const Call& call) {
        if (call.operation.find("Set") != std::string_view::npos ||
            call.operation.ends_with("Create") || call.operation == "MIDIEndpointDispose") {
            this->service.deliverNotification(1);
        }
        return noErr;
    });
    auto endpoint = this->published("Editor");
    EXPECT_EQ(posted, 0);
    endpoint.reset();
    EXPECT_EQ(posted, 0);
    this->service.deliverNotification(1);
    EXPECT_EQ(posted, 1);
}

TYPED_TEST(VirtualEndpoint, DoesNotCauseASetupChangeLater) {
    this->manager();
    int posted = 0;
    const auto observer =
        this->centre.addObserver(ZQMIDISetupChanged, [&](const void*) { ++posted; });
    auto endpoint = this->published("Editor");
    this->service.dispatch();
    EXPECT_TRUE(endpoint->setName("Renamed"));
    this->service.dispatch();
    EXPECT_TRUE(endpoint->setUniqueID(5));
    this->service.dispatch();
    endpoint.reset();
    this->service.dispatch();
    EXPECT_EQ(posted, 0);
}

TYPED_TEST(VirtualEndpoint, ThatCannotBePublishedIsOffline) {
    this->service.fail("MIDISourceCreate", -1);
    this->service.fail("MIDIDestinationCreate", -1);
    auto endpoint = this->published("Editor");
    EXPECT_EQ(endpoint->midiEndpointRef(), 0U);
    EXPECT_TRUE(endpoint->isOffline());
    EXPECT_FALSE(endpoint->isPrivate());
    endpoint->addSender(this);
    endpoint->processMIDIPacketList(*platform::makeOnePacketList(noteOn), this);
    this->recordCalls();
    endpoint.reset();
    EXPECT_THAT(this->calls, IsEmpty());
}

TYPED_TEST(VirtualEndpoint, IgnoresPropertiesThatCannotBeWritten) {
    this->service.fail("MIDIObjectSetIntegerProperty", -1);
    const auto endpoint = this->published("Editor");
    EXPECT_TRUE(endpoint->isOnline());
    EXPECT_EQ(endpoint->uniqueID(), 0);
}

TYPED_TEST(VirtualEndpoint, IsRunningWhileItIsUsed) {
    Recorder receiver;
    const auto endpoint = this->published("Editor");
    EXPECT_FALSE(endpoint->ioIsRunning());
    endpoint->addSender(this);
    EXPECT_TRUE(endpoint->ioIsRunning());
    endpoint->addReceiver(&receiver);
    endpoint->removeSender(this);
    EXPECT_TRUE(endpoint->ioIsRunning());
    endpoint->removeReceiver(&receiver);
    EXPECT_FALSE(endpoint->ioIsRunning());
    EXPECT_EQ(this->service.inputPortsCreated() + this->service.outputPortsCreated(), 0U);
}

TYPED_TEST(VirtualEndpoint, CanBePrivate) {
    const auto endpoint = this->published("Editor");
    EXPECT_FALSE(endpoint->isPrivate());
    endpoint->makePrivate(true);
    EXPECT_TRUE(endpoint->isPrivate());
    EXPECT_EQ(this->integerProperty(*endpoint, "private"), 1);
    endpoint->makePrivate(false);
    EXPECT_FALSE(endpoint->isPrivate());
    EXPECT_EQ(this->integerProperty(*endpoint, "private"), 0);
    endpoint->makePrivate(true);
    this->service.fail("MIDIObjectGetIntegerProperty", -1, "private");
    EXPECT_FALSE(endpoint->isPrivate());
}

TYPED_TEST(VirtualEndpoint, IsMadePrivateWithNotificationsOn) {
    int posted = 0;
    const auto endpoint = this->published("Editor");
    const auto observer =
        this->centre.addObserver(ZQMIDISetupChanged, [&](const void*) { ++posted; });
    this->service.onCall([&](const Call& call) {
        if (call.detail == "private") {
            this->service.deliverNotification(1);
        }
        return noErr;
    });
    endpoint->makePrivate(true);
    EXPECT_EQ(posted, 1);
}

}  // namespace
}  // namespace midi
