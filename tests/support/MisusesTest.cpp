#include "support/Misuses.h"

#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MisusesOfTheService : public SoftwareMidiTest {
protected:
    void expectMisuse(std::string_view operation) {
        EXPECT_THAT(takeMisuses(), ElementsAre(HasSubstr(std::string(operation))));
    }
    const MIDIPacketListPtr list = makeOnePacketList(noteOn);
};

TEST_F(MisusesOfTheService, IncludeAPortDisposedOfTwice) {
    const MIDIPortRef port = outputPort();
    EXPECT_EQ(service.MIDIPortDispose(port), noErr);
    EXPECT_EQ(service.MIDIPortDispose(port), kMIDIInvalidPort);
    expectMisuse("MIDIPortDispose");
}

TEST_F(MisusesOfTheService, IncludeUseOfADisposedPort) {
    Destination& out = service.addDestination("out");
    const MIDIPortRef port = outputPort();
    service.MIDIPortDispose(port);
    EXPECT_EQ(service.MIDISend(port, out.handle(), list.get()), kMIDIInvalidPort);
    expectMisuse("MIDISend");
    EXPECT_THAT(service.at(out).received(), IsEmpty());
}

TEST_F(MisusesOfTheService, IncludeAPortOfTheWrongKind) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    Reader reader;
    const MIDIPortRef output = outputPort();
    const MIDIPortRef input = inputPort(Reader::read, &reader);
    EXPECT_EQ(service.MIDIPortConnectSource(output, in.handle(), nullptr), kMIDIInvalidPort);
    expectMisuse("MIDIPortConnectSource");
    EXPECT_EQ(service.MIDIPortDisconnectSource(output, in.handle()), kMIDIInvalidPort);
    expectMisuse("MIDIPortDisconnectSource");
    EXPECT_EQ(service.MIDISend(input, out.handle(), list.get()), kMIDIInvalidPort);
    expectMisuse("MIDISend");
    service.MIDIPortDispose(output);
    service.MIDIPortDispose(input);
}

TEST_F(MisusesOfTheService, IncludeAnEndpointOfTheWrongDirection) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    Reader reader;
    const MIDIPortRef output = outputPort();
    const MIDIPortRef input = inputPort(Reader::read, &reader);
    EXPECT_EQ(service.MIDISend(output, in.handle(), list.get()), kMIDIWrongEndpointType);
    expectMisuse("MIDISend");
    EXPECT_EQ(service.MIDIPortConnectSource(input, out.handle(), nullptr), kMIDIWrongEndpointType);
    expectMisuse("MIDIPortConnectSource");
    EXPECT_EQ(service.MIDIReceived(in.handle(), list.get()), kMIDIWrongEndpointType);
    expectMisuse("MIDIReceived");
    service.MIDIPortDispose(output);
    service.MIDIPortDispose(input);
}

TEST_F(MisusesOfTheService, IncludeHandlesThatNothingEverHad) {
    service.addSource("in");
    const MIDIPortRef port = outputPort();
    std::int32_t number = 0;
    MIDIEntityRef entity = 0;
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(9999, kMIDIPropertyUniqueID, &number),
              kMIDIObjectNotFound);
    expectMisuse("MIDIObjectGetIntegerProperty");
    EXPECT_EQ(service.MIDISend(port, 9999, list.get()), kMIDIUnknownEndpoint);
    expectMisuse("MIDISend");
    EXPECT_EQ(service.MIDIEndpointGetEntity(port, &entity), kMIDIObjectNotFound);
    expectMisuse("MIDIEndpointGetEntity");
    service.MIDIPortDispose(port);
}

TEST_F(MisusesOfTheService, IncludeObjectsOfTheWrongKind) {
    Device& device = service.addDevice("Tormelk");
    MIDIObjectRef found = 0;
    EXPECT_NE(service.MIDIEndpointGetEntity(device.handle(), &found), noErr);
    expectMisuse("MIDIEndpointGetEntity");
    EXPECT_NE(service.MIDIEntityGetDevice(device.handle(), &found), noErr);
    expectMisuse("MIDIEntityGetDevice");
}

TEST_F(MisusesOfTheService, IncludeDisconnectingWhatWasNeverConnected) {
    const Source& in = service.addSource("in");
    Reader reader;
    const MIDIPortRef port = inputPort(Reader::read, &reader);
    EXPECT_EQ(service.MIDIPortDisconnectSource(port, in.handle()), kMIDINoConnection);
    expectMisuse("MIDIPortDisconnectSource");
    service.MIDIPortDispose(port);
}

TEST_F(MisusesOfTheService, DoNotIncludeDisconnectingWhatCouldNotBeConnected) {
    const Source& in = service.addSource("in");
    Reader reader;
    const MIDIPortRef port = inputPort(Reader::read, &reader);
    service.fail("MIDIPortConnectSource", -1);
    EXPECT_EQ(service.MIDIPortConnectSource(port, in.handle(), nullptr), -1);
    EXPECT_EQ(service.MIDIPortDisconnectSource(port, in.handle()), kMIDINoConnection);
    service.MIDIPortDispose(port);
}

TEST_F(MisusesOfTheService, IncludeMissingPacketLists) {
    const Destination& out = service.addDestination("out");
    MIDIEndpointRef source = 0;
    service.MIDISourceCreate(client, "mine", &source);
    const MIDIPortRef port = outputPort();
    EXPECT_NE(service.MIDISend(port, out.handle(), nullptr), noErr);
    expectMisuse("MIDISend");
    EXPECT_NE(service.MIDIReceived(source, nullptr), noErr);
    expectMisuse("MIDIReceived");
    service.MIDIPortDispose(port);
    service.MIDIEndpointDispose(source);
}

TEST_F(MisusesOfTheService, IncludeClientsThatAreNone) {
    MIDIPortRef port = 0;
    EXPECT_EQ(service.MIDIOutputPortCreate(12, "x", &port), kMIDIInvalidClient);
    expectMisuse("MIDIOutputPortCreate");
    EXPECT_EQ(service.MIDIClientDispose(12), kMIDIInvalidClient);
    expectMisuse("MIDIClientDispose");
    EXPECT_EQ(service.MIDIOutputPortCreate(0, "x", &port), kMIDIInvalidClient);
    EXPECT_THAT(service.misuses(), IsEmpty());
}

TEST_F(MisusesOfTheService, IncludeAPublishedEndpointDisposedOfTwice) {
    MIDIEndpointRef source = 0;
    service.MIDISourceCreate(client, "mine", &source);
    service.MIDIEndpointDispose(source);
    EXPECT_EQ(service.MIDIEndpointDispose(source), kMIDIUnknownEndpoint);
    expectMisuse("MIDIEndpointDispose");
    const Source& in = service.addSource("in");
    EXPECT_EQ(service.MIDIEndpointDispose(in.handle()), kMIDIUnknownEndpoint);
    expectMisuse("MIDIEndpointDispose");
}

TEST(MisusesAtTheEnd, IncludeWhatWasLeftOpen) {
    auto service = std::make_unique<support::ScriptedMidiService>();
    const std::shared_ptr<support::Misuses> misuses = service->misuseList();
    MIDIClientRef client = 0;
    MIDIPortRef port = 0;
    MIDIEndpointRef source = 0;
    service->MIDIClientCreate("client", nullptr, nullptr, &client);
    service->MIDIOutputPortCreate(client, "forgotten", &port);
    service->MIDISourceCreate(client, "mine", &source);
    EXPECT_THAT(misuses->reports(), IsEmpty());
    service.reset();
    EXPECT_THAT(misuses->reports(),
                ElementsAre(AllOf(HasSubstr("left open"), HasSubstr("forgotten")),
                            HasSubstr("left behind")));
}

}  // namespace
}  // namespace platform::software
