#include <cstring>

#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Delivery = SoftwareMidiTest;

TEST_F(Delivery, HandsASentListToTheDestinationBeforeTheSendReturns) {
    Destination& out = service.addDestination("out");
    std::vector<RecordedPacketList> taken;
    out.onReceive([&](const MIDIPacketList& list) { taken.push_back(recordOf(list)); });
    const MIDIPortRef port = outputPort();
    EXPECT_EQ(service.MIDISend(port, out.handle(), makeOnePacketList(noteOn).get()), noErr);
    EXPECT_THAT(taken, ElementsAre(RecordedPacketList{{0, noteOn}}));
    EXPECT_EQ(service.at(out).received(), taken);
    service.MIDIPortDispose(port);
}

TEST_F(Delivery, TellsWhichOtherProgramsAreConnectedToADestination) {
    Destination& out = service.addDestination("out");
    const Source& in = service.addSource("in");
    EXPECT_THAT(service.connectedPrograms(out.handle()), IsEmpty());
    service.at(out).setConnectedPrograms({"Recorder", "Patch Bay"});
    EXPECT_THAT(service.connectedPrograms(out.handle()), ElementsAre("Recorder", "Patch Bay"));
    EXPECT_THAT(service.connectedPrograms(in.handle()), IsEmpty());
    EXPECT_THAT(service.connectedPrograms(0), IsEmpty());
    MIDIEndpointRef published = 0;
    service.MIDIDestinationCreate(
        client, "own", [](const MIDIPacketList*, void*, void*) {}, nullptr, &published);
    EXPECT_THAT(service.connectedPrograms(published), IsEmpty());
    service.MIDIEndpointDispose(published);
}

TEST_F(Delivery, RecordsEveryPacketWithItsTime) {
    Destination& out = service.addDestination("out");
    const MIDIPortRef port = outputPort();
    const std::vector<std::uint8_t> raw = {2, 0, 0, 0,                            //
                                           1, 0, 0, 0, 0, 0, 0, 0, 2, 0, 7,   8,  //
                                           9, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0xF7};   //
    const MIDIPacketListPtr list = makeOnePacketList({});
    std::memcpy(list.get(), raw.data(), raw.size());
    service.MIDISend(port, out.handle(), list.get());
    EXPECT_THAT(service.at(out).received(),
                ElementsAre(RecordedPacketList{{1, {7, 8}}, {9, {0xF7}}}));
    EXPECT_THAT(service.at(out).receivedBytes(), ElementsAre(7, 8, 0xF7));
    service.at(out).forgetReceived();
    EXPECT_THAT(service.at(out).received(), IsEmpty());
    service.at(out).keepReceived(false);
    service.MIDISend(port, out.handle(), list.get());
    EXPECT_THAT(service.at(out).received(), IsEmpty());
    service.MIDIPortDispose(port);
}

TEST_F(Delivery, SendsToADestinationThatVanishedFailWithoutBlame) {
    Destination& out = service.addDestination("out");
    const MIDIPortRef port = outputPort();
    const MIDIEndpointRef handle = out.handle();
    out.unplug();
    EXPECT_EQ(service.MIDISend(port, handle, makeOnePacketList(noteOn).get()),
              kMIDIUnknownEndpoint);
    EXPECT_THAT(service.at(out).received(), IsEmpty());
    service.MIDIPortDispose(port);
}

TEST_F(Delivery, HandsAnEmittedListToEveryConnectedPort) {
    Source& in = service.addSource("in");
    Reader one;
    Reader two;
    Reader unconnected;
    const MIDIPortRef first = inputPort(Reader::read, &one);
    const MIDIPortRef second = inputPort(Reader::read, &two);
    const MIDIPortRef third = inputPort(Reader::read, &unconnected);
    int constant = 0;
    EXPECT_EQ(service.MIDIPortConnectSource(first, in.handle(), &constant), noErr);
    EXPECT_EQ(service.MIDIPortConnectSource(second, in.handle(), nullptr), noErr);
    EXPECT_EQ(service.listeners(in.handle()), 2U);
    in.emit(noteOn);
    EXPECT_THAT(one.lists, ElementsAre(RecordedPacketList{{0, noteOn}}));
    EXPECT_THAT(one.connectionConstants, ElementsAre(&constant));
    EXPECT_THAT(two.lists, ElementsAre(RecordedPacketList{{0, noteOn}}));
    EXPECT_THAT(unconnected.lists, IsEmpty());
    for (const MIDIPortRef port : {first, second, third}) {
        service.MIDIPortDispose(port);
    }
}

TEST_F(Delivery, EndsWithTheConnection) {
    Source& in = service.addSource("in");
    Reader reader;
    const MIDIPortRef port = inputPort(Reader::read, &reader);
    service.MIDIPortConnectSource(port, in.handle(), nullptr);
    EXPECT_EQ(service.MIDIPortDisconnectSource(port, in.handle()), noErr);
    in.emit(noteOn);
    EXPECT_EQ(service.MIDIPortDisconnectSource(port, in.handle()), kMIDINoConnection);
    service.MIDIPortDispose(port);
    EXPECT_THAT(reader.lists, IsEmpty());
}

TEST_F(Delivery, DoesNotSurviveAReplugOfTheSource) {
    Source& in = service.addSource("in");
    Reader reader;
    const MIDIPortRef port = inputPort(Reader::read, &reader);
    const MIDIEndpointRef before = in.handle();
    service.MIDIPortConnectSource(port, before, nullptr);
    in.unplug();
    in.emit(noteOn);
    in.plug();
    in.emit(noteOn);
    EXPECT_THAT(reader.lists, IsEmpty());
    EXPECT_EQ(service.MIDIPortDisconnectSource(port, before), kMIDIUnknownEndpoint);
    service.MIDIPortDispose(port);
}

TEST_F(Delivery, CountsPorts) {
    Reader reader;
    const MIDIPortRef in = inputPort(Reader::read, &reader);
    const MIDIPortRef out = outputPort("one");
    const MIDIPortRef out2 = outputPort("two");
    EXPECT_EQ(service.openInputPorts(), 1U);
    EXPECT_EQ(service.openOutputPorts(), 2U);
    EXPECT_THAT(service.openPortNames(), ElementsAre("in", "one", "two"));
    service.MIDIPortDispose(out);
    EXPECT_EQ(service.openOutputPorts(), 1U);
    EXPECT_EQ(service.outputPortsCreated(), 2U);
    EXPECT_EQ(service.inputPortsCreated(), 1U);
    service.MIDIPortDispose(out2);
    service.MIDIPortDispose(in);
}

TEST_F(Delivery, HandlesOfPortsAreNeverGivenTwice) {
    const MIDIPortRef one = outputPort();
    service.MIDIPortDispose(one);
    const MIDIPortRef two = outputPort();
    EXPECT_NE(one, two);
    service.MIDIPortDispose(two);
}

}  // namespace
}  // namespace platform::software
