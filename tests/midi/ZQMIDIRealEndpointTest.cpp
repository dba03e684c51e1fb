// What real sources and destinations have in common: binding, and the port that
// comes and goes.

#include "midi/ZQMIDIRealEndpoint.h"

#include "midi/MidiTest.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string entry(const char* operation, platform::MIDIObjectRef object) {
    return std::string(operation) + ' ' + std::to_string(object);
}

using RealEndpoint = MidiTest;

TEST_F(RealEndpoint, FromADescriptorIsOfflineUntilItIsFound) {
    ZQMIDIRealDestination endpoint(manager(), ZQMIDIEndpointDescriptor("Tormelk", 7));
    EXPECT_EQ(endpoint.name(), "Tormelk");
    EXPECT_EQ(endpoint.uniqueID(), 7);
    EXPECT_TRUE(endpoint.isOffline());
    EXPECT_FALSE(endpoint.ioIsRunning());
    const Destination& out = service.addDestination("Tormelk");
    endpoint.syncWithMIDIEndpoint();
    EXPECT_EQ(endpoint.midiEndpointRef(), out.handle());
    EXPECT_EQ(endpoint.uniqueID(), out.uniqueID());
    EXPECT_EQ(endpoint.displayName(), "Tormelk");
}

TEST_F(RealEndpoint, OpensItsPortWithTheFirstUserAndClosesItWithTheLast) {
    const Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Recorder one;
    Recorder two;
    source.addReceiver(&one);
    EXPECT_TRUE(source.ioIsRunning());
    source.addReceiver(&two);
    source.removeReceiver(&one);
    EXPECT_EQ(service.inputPortsCreated(), 1U);
    EXPECT_EQ(service.openInputPorts(), 1U);
    source.removeReceiver(&two);
    EXPECT_FALSE(source.ioIsRunning());
    EXPECT_EQ(service.openInputPorts(), 0U);
}

TEST_F(RealEndpoint, OpensOnePortHoweverOftenItIsStarted) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    real(in).startIO();
    real(in).startIO();
    real(out).startIO();
    real(out).startIO();
    EXPECT_EQ(service.inputPortsCreated(), 1U);
    EXPECT_EQ(service.outputPortsCreated(), 1U);
    real(in).stopIO();
    real(out).stopIO();
}

TEST_F(RealEndpoint, IsStoppedTwiceCalmly) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    real(in).startIO();
    real(out).startIO();
    for (int i = 0; i < 2; ++i) {
        real(in).stopIO();
        real(out).stopIO();
    }
    EXPECT_EQ(service.openInputPorts() + service.openOutputPorts(), 0U);
}

TEST_F(RealEndpoint, NamesItsPortsAfterItsClass) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    Recorder receiver;
    real(in).addReceiver(&receiver);
    real(out).addSender(this);
    EXPECT_THAT(service.openPortNames(), ElementsAre("ZQMIDIRealSource", "ZQMIDIRealDestination"));
    real(in).removeReceiver(&receiver);
    real(out).removeSender(this);
}

TEST_F(RealEndpoint, WithoutAHandleOpensNoPortUntilItIsBound) {
    ZQMIDIRealDestination& destination = manager().realDestinationWithDescriptor({"Tormelk", 7});
    ZQMIDIRealSource& source = manager().realSourceWithDescriptor({"Tormelk", 7});
    Recorder receiver;
    destination.addSender(this);
    source.addReceiver(&receiver);
    EXPECT_FALSE(destination.ioIsRunning());
    EXPECT_FALSE(source.ioIsRunning());
    EXPECT_EQ(service.outputPortsCreated() + service.inputPortsCreated(), 0U);
    service.addDestination("Tormelk");
    Source& in = service.addSource("Tormelk");
    service.dispatch();
    EXPECT_TRUE(destination.ioIsRunning());
    EXPECT_EQ(service.openOutputPorts(), 1U);
    EXPECT_EQ(service.listeners(in.handle()), 1U);
    destination.removeSender(this);
    source.removeReceiver(&receiver);
}

TEST_F(RealEndpoint, IsBoundWithoutAPortWhileNobodyUsesIt) {
    const ZQMIDIRealDestination& destination =
        manager().realDestinationWithDescriptor({"Tormelk", 7});
    service.addDestination("Tormelk");
    service.dispatch();
    EXPECT_TRUE(destination.isOnline());
    EXPECT_FALSE(destination.ioIsRunning());
    EXPECT_EQ(service.outputPortsCreated(), 0U);
}

TEST_F(RealEndpoint, KeepsItsPortWhileItsHandleLives) {
    Destination& out = service.addDestination("out");
    real(out).addSender(this);
    out.setName("renamed");
    out.setUniqueID(99);
    service.addDestination("out");  // has the old name now
    service.dispatch();
    EXPECT_EQ(service.outputPortsCreated(), 1U);
    EXPECT_EQ(real(out).name(), "renamed");
    EXPECT_EQ(real(out).uniqueID(), 99);
    real(out).removeSender(this);
}

TEST_F(RealEndpoint, ComparesNamesExactly) {
    ZQMIDIRealSource& source = manager().realSourceWithDescriptor({"tormelk", 7});
    ZQMIDIRealSource& nameless = manager().realSourceWithDescriptor({std::nullopt, 8});
    service.addSource("Tormelk");
    service.addSource("");
    source.syncWithMIDIEndpoint();
    nameless.syncWithMIDIEndpoint();
    EXPECT_TRUE(source.isOffline());
    EXPECT_TRUE(nameless.isOffline());
}

TEST_F(RealEndpoint, ClosesThePortOnTheOldHandleBeforeItTakesTheNew) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Recorder receiver;
    source.addReceiver(&receiver);
    const MIDIEndpointRef before = in.handle();
    MIDIEndpointRef boundWhileClosing = 0;
    in.unplug();
    in.plug();
    service.onCall([&](const Call& call) {
        if (call.operation.starts_with("MIDIPort") || call.operation == "MIDIInputPortCreate") {
            calls.emplace_back(call.operation);
            if (call.operation == "MIDIPortDisconnectSource") {
                EXPECT_EQ(call.object, before);
                boundWhileClosing = source.midiEndpointRef();
            }
            if (call.operation == "MIDIPortConnectSource") {
                EXPECT_EQ(call.object, in.handle());
            }
        }
        return noErr;
    });
    service.dispatch();
    service.onCall(nullptr);
    EXPECT_EQ(boundWhileClosing, before);
    EXPECT_THAT(calls, ElementsAre("MIDIPortDisconnectSource", "MIDIPortDispose",
                                   "MIDIInputPortCreate", "MIDIPortConnectSource"));
    in.emit(noteOn);
    EXPECT_THAT(receiver.lists, ElementsAre(noteOnRecord));
    source.removeReceiver(&receiver);
}

TEST_F(RealEndpoint, ReopensItsPortOnTheNewHandleAfterAReplug) {
    Device& device = service.addDevice("Tormelk");
    Destination& out = device.addDestination("Port 1");
    ZQMIDIRealDestination& destination = real(out);
    destination.addSender(this);
    device.unplug();
    service.dispatch();
    EXPECT_FALSE(destination.ioIsRunning());
    EXPECT_TRUE(destination.isInUse());
    EXPECT_EQ(service.openOutputPorts(), 0U);
    device.plug();
    service.dispatch();
    EXPECT_TRUE(destination.ioIsRunning());
    EXPECT_EQ(service.outputPortsCreated(), 2U);
    destination.processMIDIPacketList(*platform::makeOnePacketList(noteOn), this);
    EXPECT_THAT(service.at(out).received(), ElementsAre(noteOnRecord));
    destination.removeSender(this);
}

TEST_F(RealEndpoint, KeepsWhatItKnewWhenItsDeviceGoes) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    const Device& keyboard = service.addExternalDevice("Keyboard");
    in.setConnectedUniqueIDs(std::vector{keyboard.uniqueID()});
    const ZQMIDIRealSource& source = real(in);
    device.unplug();
    service.dispatch();
    EXPECT_EQ(source.name(), "Tormelk Port 1");
    EXPECT_EQ(source.uniqueID(), in.uniqueID());
    EXPECT_EQ(source.displayName(), "Keyboard (offline)");
}

TEST_F(RealEndpoint, WhoseLastUserLeavesWhileItIsUnpluggedClosesItsPort) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    ZQMIDIRealSource& source = real(in);
    Recorder receiver;
    source.addReceiver(&receiver);
    device.unplug();
    source.removeReceiver(&receiver);  // the manager does not know yet
    EXPECT_EQ(service.openInputPorts(), 0U);
}

TEST_F(RealEndpoint, ToleratesAPortThatCannotBeCreated) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    const platform::MIDIClientRef client = manager().midiClientRef();
    service.fail("MIDIInputPortCreate", -1);
    service.fail("MIDIOutputPortCreate", -1);
    recordCalls();
    Recorder receiver;
    real(in).addReceiver(&receiver);
    real(out).addSender(this);
    real(out).processMIDIPacketList(*platform::makeOnePacketList(noteOn), this);
    EXPECT_FALSE(real(in).ioIsRunning());
    EXPECT_FALSE(real(out).ioIsRunning());
    EXPECT_THAT(service.at(out).received(), IsEmpty());
    real(in).removeReceiver(&receiver);
    real(out).removeSender(this);
    EXPECT_THAT(calls, ElementsAre(entry("MIDIInputPortCreate", client),
                                   entry("MIDIOutputPortCreate", client)));
}

TEST_F(RealEndpoint, ToleratesASourceThatCannotBeConnected) {
    Source& in = service.addSource("in");
    service.fail("MIDIPortConnectSource", -1);
    Recorder receiver;
    real(in).addReceiver(&receiver);
    EXPECT_TRUE(real(in).ioIsRunning());
    in.emit(noteOn);
    EXPECT_THAT(receiver.lists, IsEmpty());
    real(in).removeReceiver(&receiver);
    EXPECT_EQ(service.openInputPorts(), 0U);
}

TEST_F(RealEndpoint, ToleratesASourceThatVanishesWhileItsPortIsOpened) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Recorder receiver;
    service.onCall([&](const Call& call) {
        if (call.operation == "MIDIPortConnectSource") {
            in.unplug();
        }
        return noErr;
    });
    source.addReceiver(&receiver);
    service.onCall(nullptr);
    service.dispatch();
    EXPECT_FALSE(source.ioIsRunning());
    in.plug();
    service.dispatch();
    in.emit(noteOn);
    EXPECT_THAT(receiver.lists, ElementsAre(noteOnRecord));
    source.removeReceiver(&receiver);
}

}  // namespace
}  // namespace midi
