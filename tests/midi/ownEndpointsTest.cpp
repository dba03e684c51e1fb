#include "midi/ownEndpoints.h"

#include <limits>

#include "midi/MidiTest.h"

namespace midi {
namespace {

class OwnEndpoints : public MidiTest {
protected:
    void SetUp() override { manager(); }
};

TEST_F(OwnEndpoints, AreThoseWithThisProcesssID) {
    Source& source = service.addSource("in");
    const auto isOwn = [&] { return ZQMIDIIsEndpointLocalVirtual(*process, source.handle()); };
    EXPECT_FALSE(isOwn());
    source.setIntegerProperty(ZQMIDIOwnerPID, process->processID() + 1);
    EXPECT_FALSE(isOwn());
    source.setIntegerProperty(ZQMIDIOwnerPID, process->processID());
    EXPECT_TRUE(isOwn());
    service.fail("MIDIObjectGetIntegerProperty", -1, ZQMIDIOwnerPID);
    EXPECT_FALSE(isOwn());
}

TEST_F(OwnEndpoints, FindUniqueIDsOfSourcesAndDestinationsInUse) {
    service.addSource("in").setUniqueID(5);
    service.addDestination("out").setUniqueID(6);
    EXPECT_TRUE(ZQMIDIIsUniqueIDInUse(service, 5));
    EXPECT_TRUE(ZQMIDIIsUniqueIDInUse(service, 6));
    EXPECT_FALSE(ZQMIDIIsUniqueIDInUse(service, 7));
}

TEST_F(OwnEndpoints, AnIDThatCannotBeReadCountsAsTheOneReadBefore) {
    service.addSource("in").setUniqueID(5);
    service.addSource("mute").removeProperty(platform::kMIDIPropertyUniqueID);
    service.addDestination("mute").removeProperty(platform::kMIDIPropertyUniqueID);
    EXPECT_FALSE(ZQMIDIIsUniqueIDInUse(service, 0)) << "and not as none";
}

TEST_F(OwnEndpoints, GetIDsOfTheClockPlusACounter) {
    EXPECT_EQ(ZQMIDIAllocateUniqueID(*process), 1'700'000'000);
    EXPECT_EQ(ZQMIDIAllocateUniqueID(*process), 1'700'000'001);
    now += 10;
    EXPECT_EQ(ZQMIDIAllocateUniqueID(*process), 1'700'000'012);
}

TEST_F(OwnEndpoints, GetNoIDThatIsInUse) {
    service.addSource("in").setUniqueID(1'700'000'000);
    service.addDestination("out").setUniqueID(1'700'000'001);
    EXPECT_EQ(ZQMIDIAllocateUniqueID(*process), 1'700'000'002);
}

TEST_F(OwnEndpoints, ReadTheClockAgainForEveryCandidate) {
    int readings = 0;
    ZQMIDIProcess ticking(service, centre, [&] { return 1000 + 100 * readings++; });
    service.addSource("in").setUniqueID(1000);
    EXPECT_EQ(ZQMIDIAllocateUniqueID(ticking), 1101);
    EXPECT_EQ(readings, 2);
}

TEST_F(OwnEndpoints, GetIDsThatWrapAroundIn32Bits) {
    now = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(ZQMIDIAllocateUniqueID(*process), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(ZQMIDIAllocateUniqueID(*process), std::numeric_limits<std::int32_t>::min());
}

TEST_F(OwnEndpoints, FindNamesThatAreTaken) {
    service.addDevice("Tormelk").addSource("Port 1");
    service.addDestination("Out");
    EXPECT_TRUE(ZQMIDIIsEndpointNameTaken(service, "Tormelk Port 1"));
    EXPECT_TRUE(ZQMIDIIsEndpointNameTaken(service, "Out"));
    EXPECT_FALSE(ZQMIDIIsEndpointNameTaken(service, "Port 1"));
}

}  // namespace
}  // namespace midi
