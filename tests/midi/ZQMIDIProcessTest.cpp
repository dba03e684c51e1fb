#include "midi/ZQMIDIProcess.h"

#include <unistd.h>

#include "midi/MidiTest.h"

namespace midi {
namespace {

using ::testing::IsEmpty;

using ProcessOfTheMidiLayer = MidiTest;

TEST_F(ProcessOfTheMidiLayer, ConnectsToTheServiceWithTheFirstUseOfTheManager) {
    EXPECT_FALSE(process->hasManager());
    EXPECT_EQ(service.clients(), 0U);
    const ZQMIDIManager& first = process->sharedInstance();
    EXPECT_TRUE(process->hasManager());
    EXPECT_EQ(service.clients(), 1U);
    EXPECT_EQ(&process->sharedInstance(), &first);
    EXPECT_EQ(service.clients(), 1U);
}

TEST_F(ProcessOfTheMidiLayer, KnowsItsID) {
    EXPECT_EQ(process->processID(), getpid());
}

TEST_F(ProcessOfTheMidiLayer, EndsWithoutAManagerLeavingNothing) {
    process.reset();
    EXPECT_THAT(service.misuses(), IsEmpty());
}

TEST_F(ProcessOfTheMidiLayer, HasNoClientToGiveBackWhereNoneCouldBeMade) {
    service.fail("MIDIClientCreate", platform::kMIDIServerStartErr);
    EXPECT_EQ(manager().midiClientRef(), 0U);
    recordCalls();
    process.reset();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ProcessOfTheMidiLayer, ClosesOpenPortsWhenItEnds) {
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    Recorder receiver;
    real(in).addReceiver(&receiver);
    real(out).addSender(this);
    EXPECT_EQ(service.openInputPorts() + service.openOutputPorts(), 2U);
    process.reset();
    EXPECT_EQ(service.openInputPorts() + service.openOutputPorts(), 0U);
    service.addDevice("later");
    service.dispatch();  // reaches nobody
}

TEST_F(ProcessOfTheMidiLayer, CanLiveBesideAnother) {
    service.addSource("in");
    ZQMIDIProcess other(service, centre);
    EXPECT_NE(&other.sharedInstance(), &manager());
    EXPECT_EQ(other.sharedInstance().realSources().size(), 1U);
    EXPECT_EQ(manager().realSources().size(), 1U);
    EXPECT_NE(other.sharedInstance().realSources()[0], manager().realSources()[0]);
}

TEST_F(ProcessOfTheMidiLayer, HasAManagerThatListsNothingWhereThereIsNoService) {
    service.addSource("in");
    service.addDestination("out");
    platform::ServiceState notLoaded;
    notLoaded.obstacle = platform::ServiceState::Obstacle::NotLoaded;
    service.obstruct(notLoaded);
    EXPECT_THAT(process->sharedInstance().realSources(), IsEmpty());
    EXPECT_THAT(process->sharedInstance().realDestinations(), IsEmpty());
}

}  // namespace
}  // namespace midi
