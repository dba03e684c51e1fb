#include "midi/ZQMIDIRealSource.h"

#include <functional>
#include <thread>

#include "midi/MidiTest.h"
#include "support/AbsentMidiService.h"

namespace midi {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using RealSource = MidiTest;

/// A receiver that runs a function.
struct Acting final : ZQMIDIReceiver {
    std::function<void()> act;
    int calls = 0;

    void processMIDIPacketList(const platform::MIDIPacketList&, const void*) override {
        ++calls;
        if (act) {
            act();
        }
    }
};

TEST_F(RealSource, HandsEachListToEveryReceiverWithItselfAsSender) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Recorder one;
    Recorder two;
    source.addReceiver(&one);
    source.addReceiver(&two);
    in.emit(noteOn);
    in.emit(noteOn);
    for (const Recorder* receiver : {&one, &two}) {
        EXPECT_THAT(receiver->lists, ElementsAre(noteOnRecord, noteOnRecord));
        EXPECT_THAT(receiver->senders, ElementsAre(&source, &source));
    }
    source.removeReceiver(&one);
    source.removeReceiver(&two);
}

TEST_F(RealSource, DeliversOnTheThreadOnWhichInputArrives) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Acting receiver;
    std::thread::id thread;
    receiver.act = [&] { thread = std::this_thread::get_id(); };
    source.addReceiver(&receiver);
    std::thread input([&] { in.emit(noteOn); });
    const std::thread::id inputThread = input.get_id();
    input.join();
    EXPECT_EQ(thread, inputThread);
    source.removeReceiver(&receiver);
}

TEST_F(RealSource, IgnoresWhoASenderSaysItIs) {
    ZQMIDIRealSource& source = real(service.addSource("in"));
    Recorder receiver;
    source.addReceiver(&receiver);
    source.processMIDIPacketList(*platform::makeOnePacketList(noteOn), this);
    EXPECT_THAT(receiver.senders, ElementsAre(&source));
    source.removeReceiver(&receiver);
}

TEST_F(RealSource, ListensForASenderTooButHasNobodyToTell) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    source.addSender(this);
    EXPECT_EQ(service.listeners(in.handle()), 1U);
    in.emit(noteOn);
    source.removeSender(this);
    EXPECT_EQ(service.listeners(in.handle()), 0U);
}

TEST_F(RealSource, CanBeTiedToADestination) {
    Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    real(out).addSender(&real(in));
    real(in).addReceiver(&real(out));
    in.emit(noteOn);
    EXPECT_THAT(service.at(out).received(), ElementsAre(noteOnRecord));
    real(in).removeReceiver(&real(out));
    real(out).removeSender(&real(in));
}

TEST_F(RealSource, StopsHearingWithTheLastReceiver) {
    Source& in = service.addSource("in");
    Recorder receiver;
    real(in).addReceiver(&receiver);
    real(in).removeReceiver(&receiver);
    in.emit(noteOn);
    EXPECT_THAT(receiver.lists, IsEmpty());
}

TEST_F(RealSource, LetsAReceiverRemoveItselfAndSoCloseThePort) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Acting once;
    once.act = [&] { source.removeReceiver(&once); };
    source.addReceiver(&once);
    in.emit(noteOn);
    in.emit(noteOn);
    EXPECT_EQ(once.calls, 1);
    EXPECT_EQ(service.openInputPorts(), 0U);
}

TEST_F(RealSource, DoesNotCallAReceiverThatAnotherOneRemoved) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Acting first;
    Recorder second;
    Recorder third;
    first.act = [&] { source.removeReceiver(&second); };
    source.addReceiver(&first);
    source.addReceiver(&second);
    source.addReceiver(&third);
    in.emit(noteOn);
    EXPECT_THAT(second.lists, IsEmpty());
    EXPECT_THAT(third.lists, SizeIs(1));
    source.removeReceiver(&first);
    source.removeReceiver(&third);
}

TEST_F(RealSource, CallsAReceiverAddedDuringADeliveryFromTheNextListOn) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Acting first;
    Recorder late;
    first.act = [&] { source.addReceiver(&late); };
    source.addReceiver(&first);
    in.emit(noteOn);
    EXPECT_THAT(late.lists, IsEmpty());
    in.emit(noteOn);
    EXPECT_THAT(late.lists, SizeIs(1));
    source.removeReceiver(&first);
    source.removeReceiver(&late);
}

TEST_F(RealSource, StaysOnItsHandleWhileThatLivesWhateverItsIDAndName) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    const std::int32_t idBefore = in.uniqueID();
    in.setUniqueID(99);
    in.setName("renamed");
    service.addSource("in").setUniqueID(idBefore);  // has both now
    source.syncWithMIDIEndpoint();
    EXPECT_EQ(source.midiEndpointRef(), in.handle());
    EXPECT_EQ(source.name(), "renamed");
}

TEST_F(RealSource, IsFoundAgainByUniqueIDBeforeName) {
    ZQMIDIRealSource& source = manager().realSourceWithDescriptor({"Tormelk", 7});
    service.addSource("Tormelk");
    Source& byID = service.addSource("Other");
    byID.setUniqueID(7);
    source.syncWithMIDIEndpoint();
    EXPECT_EQ(source.midiEndpointRef(), byID.handle());
    EXPECT_EQ(source.name(), "Other");
}

TEST_F(RealSource, LosesAHandleThatIsNoLongerThere) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    in.unplug();
    source.syncWithMIDIEndpoint();
    EXPECT_EQ(source.midiEndpointRef(), 0U);
}

TEST_F(RealSource, MayBeUnpluggedWhileItDelivers) {
    Source& in = service.addSource("in");
    ZQMIDIRealSource& source = real(in);
    Acting receiver;
    receiver.act = [&] {
        in.unplug();
        service.dispatch();
    };
    source.addReceiver(&receiver);
    in.emit(noteOn);
    EXPECT_EQ(receiver.calls, 1);
    EXPECT_TRUE(source.isOffline());
    EXPECT_FALSE(source.ioIsRunning());
    source.removeReceiver(&receiver);
}

TEST(RealSourceWithoutAMidiService, OpensNoPort) {
    support::AbsentMidiService service;
    platform::NotificationCentre centre;
    ZQMIDIProcess process(service, centre);
    ZQMIDIRealSource source(process.sharedInstance(), MIDIEndpointRef{1});
    source.addSender(&service);
    EXPECT_FALSE(source.ioIsRunning());
    source.removeSender(&service);
}

}  // namespace
}  // namespace midi
