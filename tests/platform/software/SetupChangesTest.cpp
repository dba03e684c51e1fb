#include <poll.h>

#include <thread>

#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SetupChanges : public SoftwareMidiTest {
protected:
    [[nodiscard]] bool isReadable() const {
        pollfd watched{service.fileDescriptor(), POLLIN, 0};
        return poll(&watched, 1, 0) == 1;
    }
};

TEST_F(SetupChanges, WaitForDispatchAndComeTogetherAsOne) {
    EXPECT_FALSE(isReadable());
    Device& device = service.addDevice("Tormelk");
    device.addSource("in");
    device.unplug();
    EXPECT_TRUE(isReadable());
    EXPECT_THAT(messages, IsEmpty());
    service.dispatch();
    EXPECT_THAT(messages, ElementsAre(1));
    EXPECT_FALSE(isReadable());
    service.dispatch();
    EXPECT_THAT(messages, ElementsAre(1));
}

TEST_F(SetupChanges, AreReportedForEveryKindOfChangeOfADevice) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("in");
    const std::vector<std::function<void()>> changes = {
        [&] { device.unplug(); },
        [&] { device.plug(); },
        [&] { in.unplug(); },
        [&] { in.plug(); },
        [&] { in.setName("new"); },
        [&] { in.setUniqueID(3); },
        [&] { in.setDataProperty("d", {}); },
        [&] { in.removeProperty("d"); },
        [&] { service.addDestination("out"); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        service.dispatch();
        messages.clear();
        changes[i]();
        service.dispatch();
        EXPECT_THAT(messages, ElementsAre(1)) << "change " << i;
    }
}

TEST_F(SetupChanges, AreNeverReportedForWhatAClientDoes) {
    const Source& in = service.addSource("in");
    service.dispatch();
    messages.clear();
    MIDIEndpointRef source = 0;
    MIDIEndpointRef destination = 0;
    Reader reader;
    service.MIDISourceCreate(client, "mine", &source);
    service.MIDIDestinationCreate(client, "mine", Reader::read, &reader, &destination);
    service.MIDIObjectSetStringProperty(in.handle(), kMIDIPropertyName, "renamed");
    service.MIDIObjectSetIntegerProperty(source, kMIDIPropertyUniqueID, 5);
    service.MIDIEndpointDispose(source);
    service.MIDIEndpointDispose(destination);
    EXPECT_FALSE(isReadable());
    service.dispatch();
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SetupChanges, FromBeforeAClientAreNotReportedToIt) {
    service.MIDIClientDispose(client);
    service.addDevice("Tormelk");
    SetUp();
    service.dispatch();
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SetupChanges, AreReportedWithoutAnyClientToThoseWhoWatchTheState) {
    EXPECT_EQ(service.MIDIClientDispose(client), noErr);
    int changes = 0;
    const auto registration = service.stateChanges().addObserver(
        MIDIServiceStateChanged, [&changes](const void*) { ++changes; });
    service.addDevice("Tormelk").addDestination("Port 1");
    EXPECT_TRUE(isReadable());
    EXPECT_EQ(changes, 0);
    service.dispatch();
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(service.state().hasDestination);
    EXPECT_FALSE(isReadable());
}

TEST_F(SetupChanges, AreNotReportedToAClientThatIsDisposedOf) {
    service.addDevice("Tormelk");
    EXPECT_EQ(service.MIDIClientDispose(client), noErr);
    service.dispatch();
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(SetupChanges, MadeOnOtherThreadsAreDeliveredOnTheMainThread) {
    std::thread([&] { service.addDevice("Tormelk"); }).join();
    EXPECT_TRUE(isReadable());
    service.dispatch();
    EXPECT_THAT(messages, ElementsAre(1));
}

TEST_F(SetupChanges, DispatchedOnAnotherThreadAreMisuse) {
    std::thread([&] { service.dispatch(); }).join();
    EXPECT_THAT(takeMisuses(), ElementsAre(HasSubstr("dispatch")));
}

TEST_F(SetupChanges, MadeDuringADispatchAreDeliveredByTheNext) {
    MIDIClientRef second = 0;
    struct Changer {
        support::ScriptedMidiService& service;
        int calls = 0;
    } changer{service};
    service.MIDIClientCreate(
        "second",
        [](const MIDINotification*, void* refCon) {
            auto* const self = static_cast<Changer*>(refCon);
            if (++self->calls == 1) {
                self->service.addDevice("another");
            }
        },
        &changer, &second);
    service.addDevice("Tormelk");
    service.dispatch();
    EXPECT_EQ(changer.calls, 1);
    EXPECT_TRUE(isReadable());
    service.dispatch();
    EXPECT_EQ(changer.calls, 2);
    EXPECT_FALSE(isReadable());
}

TEST_F(SetupChanges, CanBeDeliveredAtOnceWithAnyMessage) {
    service.deliverNotification(1);
    service.deliverNotification(4);
    EXPECT_THAT(messages, ElementsAre(1, 4));
    EXPECT_FALSE(isReadable());
}

}  // namespace
}  // namespace platform::software
