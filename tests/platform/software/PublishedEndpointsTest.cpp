#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using PublishedEndpoints = SoftwareMidiTest;

TEST_F(PublishedEndpoints, AreListedWithTheirNameUntilDisposedOf) {
    Reader reader;
    MIDIEndpointRef source = 0;
    MIDIEndpointRef destination = 0;
    ASSERT_EQ(service.MIDISourceCreate(client, "mine", &source), noErr);
    ASSERT_EQ(
        service.MIDIDestinationCreate(client, "mine too", Reader::read, &reader, &destination),
        noErr);
    EXPECT_THAT(sources(), ElementsAre(source));
    EXPECT_THAT(destinations(), ElementsAre(destination));
    EXPECT_EQ(service.publishedEndpoints(), 2U);
    std::string name;
    service.MIDIObjectGetStringProperty(source, kMIDIPropertyName, &name);
    EXPECT_EQ(name, "mine");
    EXPECT_EQ(service.MIDIEndpointDispose(source), noErr);
    EXPECT_EQ(service.MIDIEndpointDispose(destination), noErr);
    EXPECT_THAT(sources(), IsEmpty());
    EXPECT_THAT(destinations(), IsEmpty());
    EXPECT_EQ(service.publishedEndpoints(), 0U);
}

TEST_F(PublishedEndpoints, HaveNoUniqueIDUnlessTheServiceGivesThemOne) {
    MIDIEndpointRef source = 0;
    service.MIDISourceCreate(client, "mine", &source);
    std::int32_t id = 0;
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(source, kMIDIPropertyUniqueID, &id),
              kMIDIUnknownProperty);
    service.MIDIEndpointDispose(source);
    service.giveUniqueIDsToPublished(true);
    service.MIDISourceCreate(client, "mine", &source);
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(source, kMIDIPropertyUniqueID, &id), noErr);
    EXPECT_NE(id, 0);
    service.MIDIEndpointDispose(source);
}

TEST_F(PublishedEndpoints, GiveWhatTheyPublishToListeners) {
    MIDIEndpointRef source = 0;
    service.MIDISourceCreate(client, "mine", &source);
    Reader reader;
    const MIDIPortRef port = inputPort(Reader::read, &reader);
    service.MIDIPortConnectSource(port, source, nullptr);
    EXPECT_EQ(service.MIDIReceived(source, makeOnePacketList(noteOn).get()), noErr);
    EXPECT_THAT(reader.lists, ElementsAre(RecordedPacketList{{0, noteOn}}));
    service.MIDIPortDispose(port);
    service.MIDIEndpointDispose(source);
    EXPECT_THAT(service.publishedBy(source), ElementsAre(RecordedPacketList{{0, noteOn}}));
}

TEST_F(PublishedEndpoints, TakeWhatOtherProgramsAndThisOneSend) {
    Reader reader;
    MIDIEndpointRef destination = 0;
    service.MIDIDestinationCreate(client, "mine", Reader::read, &reader, &destination);
    service.sendTo(destination, *makeOnePacketList(noteOn));
    const MIDIPortRef port = outputPort();
    EXPECT_EQ(service.MIDISend(port, destination, makeOnePacketList(noteOn).get()), noErr);
    EXPECT_EQ(reader.lists.size(), 2U);
    EXPECT_THAT(reader.connectionConstants, ElementsAre(nullptr, nullptr));
    service.MIDIPortDispose(port);
    service.MIDIEndpointDispose(destination);
    service.sendTo(destination, *makeOnePacketList(noteOn));
    EXPECT_EQ(reader.lists.size(), 2U);
}

TEST_F(PublishedEndpoints, CannotBePublishedWithoutAClient) {
    MIDIEndpointRef endpoint = 9;
    EXPECT_EQ(service.MIDISourceCreate(0, "mine", &endpoint), kMIDIInvalidClient);
    EXPECT_EQ(endpoint, 0U);
    EXPECT_EQ(service.MIDIEndpointDispose(0), kMIDIUnknownEndpoint);
}

}  // namespace
}  // namespace platform::software
