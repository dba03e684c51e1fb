#include "midi/ZQMIDIVirtualDestination.h"

#include "midi/MidiTest.h"
#include "support/AbsentMidiService.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class VirtualDestination : public MidiTest {
protected:
    const platform::MIDIPacketListPtr list = platform::makeOnePacketList(noteOn);
};

TEST_F(VirtualDestination, HandsWhatArrivesToItsReceiversWithItselfAsSender) {
    ZQMIDIVirtualDestination destination(manager(), "Editor");
    Recorder one;
    Recorder two;
    destination.addReceiver(&one);
    destination.addReceiver(&two);
    service.sendTo(destination.midiEndpointRef(), *list);
    for (const Recorder* receiver : {&one, &two}) {
        EXPECT_THAT(receiver->lists, ElementsAre(noteOnRecord));
        EXPECT_THAT(receiver->senders, ElementsAre(&destination));
    }
    destination.removeReceiver(&one);
    destination.removeReceiver(&two);
}

TEST_F(VirtualDestination, DropsWhatArrivesWhileItIsStopped) {
    ZQMIDIVirtualDestination destination(manager(), "Editor");
    Recorder receiver;
    service.sendTo(destination.midiEndpointRef(), *list);
    destination.addReceiver(&receiver);
    destination.stopIO();
    service.sendTo(destination.midiEndpointRef(), *list);
    EXPECT_THAT(receiver.lists, IsEmpty());
    destination.startIO();
    service.sendTo(destination.midiEndpointRef(), *list);
    EXPECT_THAT(receiver.lists, ElementsAre(noteOnRecord));
    destination.removeReceiver(&receiver);
}

TEST_F(VirtualDestination, CanBeFedByThisProgramToo) {
    ZQMIDIVirtualDestination destination(manager(), "Editor");
    Recorder receiver;
    destination.addReceiver(&receiver);
    destination.processMIDIPacketList(*list, this);
    EXPECT_THAT(receiver.senders, ElementsAre(&destination));
    destination.removeReceiver(&receiver);
}

TEST_F(VirtualDestination, IsADestinationAndNoSource) {
    const ZQMIDIVirtualDestination destination(manager(), "Editor");
    EXPECT_EQ(service.MIDIGetNumberOfSources(), 0U);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 1U);
}

TEST(VirtualDestinationWithoutAMidiService, HasNoHandleAndIsOffline) {
    support::AbsentMidiService service;
    platform::NotificationCentre centre;
    ZQMIDIProcess process(service, centre);
    const ZQMIDIVirtualDestination destination(process.sharedInstance(), "Editor");
    EXPECT_EQ(destination.midiEndpointRef(), 0U);
    EXPECT_TRUE(destination.isOffline());
}

}  // namespace
}  // namespace midi
