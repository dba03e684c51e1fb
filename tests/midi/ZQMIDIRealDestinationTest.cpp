#include "midi/ZQMIDIRealDestination.h"

#include "midi/MidiTest.h"
#include "support/AbsentMidiService.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RealDestination : public MidiTest {
protected:
    const platform::MIDIPacketListPtr list = platform::makeOnePacketList(noteOn);
};

TEST_F(RealDestination, SendsWithASenderRegistered) {
    const Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    destination.addSender(this);
    destination.processMIDIPacketList(*list, this);
    destination.processMIDIPacketList(*list,
                                      nullptr);  // who says it does not matter
    destination.removeSender(this);
    EXPECT_THAT(service.at(out).received(), ElementsAre(noteOnRecord, noteOnRecord));
}

TEST_F(RealDestination, SendsNothingWithoutASender) {
    const Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    recordCalls();
    destination.processMIDIPacketList(*list, this);
    EXPECT_THAT(calls, IsEmpty());
    destination.addSender(this);
    destination.removeSender(this);
    destination.processMIDIPacketList(*list, this);
    EXPECT_THAT(service.at(out).received(), IsEmpty());
}

TEST_F(RealDestination, SendsNothingWhileOffline) {
    ZQMIDIRealDestination& destination = manager().realDestinationWithDescriptor({"Tormelk", 7});
    recordCalls();
    destination.addSender(this);
    destination.processMIDIPacketList(*list, this);
    EXPECT_THAT(calls, IsEmpty());
    destination.removeSender(this);
}

TEST_F(RealDestination, SendsIntoTheVoidWhenTheDeviceHasJustGone) {
    Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    destination.addSender(this);
    out.unplug();
    destination.processMIDIPacketList(*list, this);
    EXPECT_THAT(service.at(out).received(), IsEmpty());
    destination.removeSender(this);
    EXPECT_EQ(service.openOutputPorts(), 0U);
}

TEST_F(RealDestination, OpensAndClosesAPortAroundEveryUse) {
    const Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    for (int i = 0; i < 3; ++i) {
        destination.addSender(this);
        destination.processMIDIPacketList(*list, this);
        destination.removeSender(this);
        EXPECT_EQ(service.openOutputPorts(), 0U);
    }
    EXPECT_EQ(service.outputPortsCreated(), 3U);
    EXPECT_EQ(service.at(out).received().size(), 3U);
}

TEST_F(RealDestination, TakesTheLastOfSeveralSendersToClose) {
    const Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    const int other = 0;
    destination.addSender(this);
    destination.addSender(&other);
    destination.removeSender(this);
    EXPECT_TRUE(destination.ioIsRunning());
    destination.removeSender(&other);
    EXPECT_FALSE(destination.ioIsRunning());
}

TEST_F(RealDestination, StaysOnItsHandleWhileThatLivesWhateverItsIDAndName) {
    Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    const std::int32_t idBefore = out.uniqueID();
    out.setUniqueID(99);
    out.setName("renamed");
    service.addDestination("out").setUniqueID(idBefore);  // has both now
    destination.syncWithMIDIEndpoint();
    EXPECT_EQ(destination.midiEndpointRef(), out.handle());
    EXPECT_EQ(destination.name(), "renamed");
}

TEST_F(RealDestination, IsFoundAgainByUniqueIDBeforeName) {
    ZQMIDIRealDestination& destination = manager().realDestinationWithDescriptor({"Tormelk", 7});
    service.addDestination("Tormelk");
    Destination& byID = service.addDestination("Other");
    byID.setUniqueID(7);
    destination.syncWithMIDIEndpoint();
    EXPECT_EQ(destination.midiEndpointRef(), byID.handle());
    EXPECT_EQ(destination.name(), "Other");
}

TEST_F(RealDestination, LosesAHandleThatIsNoLongerThere) {
    Destination& out = service.addDestination("out");
    ZQMIDIRealDestination& destination = real(out);
    out.unplug();
    destination.syncWithMIDIEndpoint();
    EXPECT_EQ(destination.midiEndpointRef(), 0U);
}

TEST(RealDestinationWithoutAMidiService, OpensNoPort) {
    support::AbsentMidiService service;
    platform::NotificationCentre centre;
    ZQMIDIProcess process(service, centre);
    ZQMIDIRealDestination destination(process.sharedInstance(), MIDIEndpointRef{1});
    destination.addSender(&service);
    EXPECT_FALSE(destination.ioIsRunning());
    destination.removeSender(&service);
}

}  // namespace
}  // namespace midi
