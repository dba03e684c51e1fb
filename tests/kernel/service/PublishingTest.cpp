#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <set>

#include "kernel/Program.h"
#include "kernel/ReceivedBytes.h"
#include "kernel/publicTools.h"
#include "kernel/sequencerClients.h"
#include "kernel/service/EndpointLayer.h"
#include "kernel/sysEx.h"
#include "kernel/waitUntil.h"
#include "midi/ZQMIDIVirtualDestination.h"
#include "midi/ZQMIDIVirtualSource.h"
#include "midi/archive/keyedArchive.h"
#include "midi/ownEndpoints.h"

// What this program publishes, as other programs see and use it.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using midi::ZQMIDIVirtualDestination;
using midi::ZQMIDIVirtualSource;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class MessageRecorder final : public midi::ZQMIDIReceiver {
public:
    void processMIDIPacketList(const platform::MIDIPacketList& list, const void*) override {
        platform::forEachPacket(
            list, [&](std::uint64_t, std::span<const std::uint8_t> packet) { bytes.add(packet); });
    }
    ReceivedBytes bytes;
};

class Publishing : public testing::Test {
protected:
    EndpointLayer layer{"Tormelk Publisher"};
};

TEST_F(Publishing, IsSeenByThePublicToolsUnderTheProgramsName) {
    const ZQMIDIVirtualSource source(layer.manager(), "live source");
    const ZQMIDIVirtualDestination destination(layer.manager(), "live destination");
    const std::string inputs = run({"aconnect", "-i"}).output;
    const std::string outputs = run({"aconnect", "-o"}).output;
    EXPECT_THAT(inputs, HasSubstr("'Tormelk Publisher' [type=user"));
    EXPECT_THAT(inputs, HasSubstr("live source"));
    EXPECT_THAT(inputs, Not(HasSubstr("live destination")));
    EXPECT_THAT(outputs, HasSubstr("live destination"));
    EXPECT_THAT(outputs, Not(HasSubstr("live source")));
}

TEST_F(Publishing, IsAbsentFromTheProgramsOwnListsAlsoAfterAChange) {
    const ZQMIDIVirtualSource source(layer.manager(), "live source");
    const ZQMIDIVirtualDestination destination(layer.manager(), "live destination");
    Program other({"aseqdump", "-p", "14:0"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("aseqdump") != nullptr; }));
    EXPECT_THAT(layer.sourceNames(), Not(Contains("live source")));
    EXPECT_THAT(layer.destinationNames(), Not(Contains("live destination")));
}

TEST_F(Publishing, IsNoSetupChangeNorIsItsEnd) {
    {
        const ZQMIDIVirtualSource source(layer.manager(), "live source");
        const ZQMIDIVirtualDestination destination(layer.manager(), "live destination");
        layer.run(300ms);
        EXPECT_EQ(layer.setupChanges, 0);
    }
    layer.run(300ms);
    EXPECT_EQ(layer.setupChanges, 0);
}

TEST_F(Publishing, ADestinationTakesWhatOthersSendWhileSomebodyListens) {
    ZQMIDIVirtualDestination destination(layer.manager(), "live destination");
    // Nobody listens yet: dropped.
    sendThroughSequencer("Tormelk Publisher:0", sysEx(20));
    MessageRecorder recorder;
    destination.addReceiver(&recorder);
    sendThroughSequencer("Tormelk Publisher:0", sysEx(254));
    EXPECT_EQ(recorder.bytes.atLeast(254, 5s), sysEx(254));
    destination.removeReceiver(&recorder);
}

TEST_F(Publishing, ASourceIsHeardByOthersOnceItHasASender) {
    ZQMIDIVirtualSource source(layer.manager(), "live source");
    Program listener({"aseqdump", "-p", "Tormelk Publisher:0"});
    ASSERT_TRUE(waitUntil(
        [] {
            return !sequencerClientsNamed("Tormelk Publisher").empty() &&
                   !sequencerClientsNamed("Tormelk Publisher").back().ports.empty() &&
                   !sequencerClientsNamed("Tormelk Publisher").back().ports[0].sendsTo.empty();
        },
        10s))
        << listener.output();
    source.processMIDIPacketList(*platform::makeOnePacketList(Bytes{0x90, 1, 2}), nullptr);
    const int user = 0;
    source.addSender(&user);
    source.processMIDIPacketList(*platform::makeOnePacketList(Bytes{0x90, 60, 100}), &user);
    source.removeSender(&user);
    ASSERT_TRUE(listener.waitForOutput("note 60, velocity 100", 5s)) << listener.output();
    EXPECT_THAT(listener.stop(SIGINT).output, Not(HasSubstr("note 1,")));
}

TEST_F(Publishing, TwoMadeInTheSameSecondHaveIdsThatNobodyElseHas) {
    std::set<std::int32_t> ids;
    for (const auto& endpoint : layer.manager().realSources()) {
        ids.insert(endpoint->uniqueID());
    }
    for (const auto& endpoint : layer.manager().realDestinations()) {
        ids.insert(endpoint->uniqueID());
    }
    const std::size_t before = ids.size();
    const ZQMIDIVirtualSource first(layer.manager(), "one");
    const ZQMIDIVirtualSource second(layer.manager(), "two");
    ids.insert(first.uniqueID());
    ids.insert(second.uniqueID());
    EXPECT_EQ(ids.size(), before + 2);
    EXPECT_TRUE(midi::ZQMIDIIsUniqueIDInUse(layer.service, first.uniqueID()));
}

TEST_F(Publishing, AnotherProgramsEndpointsAreListedAlthoughTheyHaveAnOwner) {
    Program other({"aseqdump", "-p", "14:0"});
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("aseqdump") != nullptr; }));
    EXPECT_FALSE(midi::ZQMIDIIsEndpointLocalVirtual(
        layer.process, layer.destination("aseqdump")->midiEndpointRef()));
}

TEST_F(Publishing, GetsAnotherNameAndIdWhenTold) {
    ZQMIDIVirtualSource source(layer.manager(), "before");
    EXPECT_TRUE(source.setName("afterwards"));
    EXPECT_TRUE(source.setUniqueID(4711));
    EXPECT_THAT(run({"aconnect", "-i"}).output, HasSubstr("afterwards"));
    ZQMIDIVirtualSource other(layer.manager(), "other");
    EXPECT_FALSE(other.setUniqueID(4711));
    EXPECT_FALSE(other.setUniqueID(0));
}

TEST_F(Publishing, APrivateEndpointIsHiddenFromOthersUntilItIsNot) {
    ZQMIDIVirtualSource source(layer.manager(), "secret");
    EXPECT_FALSE(source.isPrivate());
    source.makePrivate(true);
    EXPECT_TRUE(source.isPrivate());
    EXPECT_THAT(run({"aconnect", "-i"}).output, Not(HasSubstr("secret")));
    source.makePrivate(false);
    EXPECT_FALSE(source.isPrivate());
    EXPECT_THAT(run({"aconnect", "-i"}).output, HasSubstr("secret"));
}

TEST_F(Publishing, GoesWithItsObject) {
    {
        const ZQMIDIVirtualSource source(layer.manager(), "passing");
        EXPECT_THAT(run({"aconnect", "-i"}).output, HasSubstr("passing"));
    }
    EXPECT_THAT(run({"aconnect", "-i"}).output, Not(HasSubstr("passing")));
}

TEST_F(Publishing, NamesOfOthersCannotBeChanged) {
    midi::ZQMIDIRealDestination& through = *layer.destination("\u21C4 Midi Through Port-0");
    EXPECT_FALSE(through.setName("mine"));
    EXPECT_FALSE(through.setUniqueID(4711));
    EXPECT_EQ(through.displayName(), "\u21C4 Midi Through Port-0");
}

}  // namespace
}  // namespace kernel
