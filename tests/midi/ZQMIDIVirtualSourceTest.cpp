#include "midi/ZQMIDIVirtualSource.h"

#include "midi/MidiTest.h"
#include "support/AbsentMidiService.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using VirtualSource = MidiTest;

TEST_F(VirtualSource, PublishesOnlyWhileItIsUsed) {
    ZQMIDIVirtualSource source(manager(), "Editor");
    const platform::MIDIPacketListPtr list = platform::makeOnePacketList(noteOn);
    source.processMIDIPacketList(*list, this);
    EXPECT_THAT(service.publishedBy(source.midiEndpointRef()), IsEmpty());
    source.addSender(this);
    source.processMIDIPacketList(*list, nullptr);
    EXPECT_THAT(service.publishedBy(source.midiEndpointRef()), ElementsAre(noteOnRecord));
    source.removeSender(this);
    source.processMIDIPacketList(*list, this);
    EXPECT_THAT(service.publishedBy(source.midiEndpointRef()), ElementsAre(noteOnRecord));
}

TEST_F(VirtualSource, IsASourceAndNoDestination) {
    const ZQMIDIVirtualSource source(manager(), "Editor");
    EXPECT_EQ(service.MIDIGetNumberOfSources(), 1U);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 0U);
}

TEST(VirtualSourceWithoutAMidiService, HasNoHandleAndIsOffline) {
    support::AbsentMidiService service;
    platform::NotificationCentre centre;
    ZQMIDIProcess process(service, centre);
    const ZQMIDIVirtualSource source(process.sharedInstance(), "Editor");
    EXPECT_EQ(source.midiEndpointRef(), 0U);
    EXPECT_TRUE(source.isOffline());
}

}  // namespace
}  // namespace midi
