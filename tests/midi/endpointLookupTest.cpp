#include "midi/endpointLookup.h"

#include "midi/MidiTest.h"

namespace midi {
namespace {

class EndpointLookup : public MidiTest {
protected:
    void SetUp() override { manager(); }  // nothing is listed without a client

    std::optional<std::string> composedName(std::string_view device, std::string_view port) {
        return ZQMIDIGetEndpointName(service, service.addDevice(device).addSource(port).handle());
    }
};

TEST_F(EndpointLookup, PutsTheDevicesNameInFrontOfThePorts) {
    EXPECT_EQ(composedName("Tormelk", "Port 1"), "Tormelk Port 1");
}

TEST_F(EndpointLookup, KeepsAPortNameThatBeginsWithTheDevicesInAnyCase) {
    EXPECT_EQ(composedName("Tormelk", "Tormelk MIDI"), "Tormelk MIDI");
    EXPECT_EQ(composedName("Tormelk", "tormelk midi"), "tormelk midi");
    EXPECT_EQ(composedName("Tormelk", "TORMELK Port 1"), "TORMELK Port 1");
    EXPECT_EQ(composedName("Tormelk", "Tormelk"), "Tormelk");
    EXPECT_EQ(composedName("Tormelk", "Tormelks"), "Tormelks");
    EXPECT_EQ(composedName("Gerät Ö", "GERÄT ö 2"), "GERÄT ö 2");
}

TEST_F(EndpointLookup, JoinsNamesWhenThePortsIsShorterThanTheDevices) {
    EXPECT_EQ(composedName("Tormelk", "Torm"), "Tormelk Torm");
    EXPECT_EQ(composedName("Tormelk", ""), "Tormelk ");
}

TEST_F(EndpointLookup, NamesAnEndpointWithoutADeviceByItsOwnName) {
    EXPECT_EQ(ZQMIDIGetEndpointName(service, service.addSource("Sequencer").handle()), "Sequencer");
}

TEST_F(EndpointLookup, NamesAnEndpointWithoutANameByItsDevice) {
    Source& in = service.addDevice("Tormelk").addSource("");
    in.removeProperty(platform::kMIDIPropertyName);
    EXPECT_EQ(ZQMIDIGetEndpointName(service, in.handle()), "Tormelk");
}

TEST_F(EndpointLookup, NamesNothingThatHasNeitherName) {
    Source& in = service.addSource("");
    in.removeProperty(platform::kMIDIPropertyName);
    EXPECT_EQ(ZQMIDIGetEndpointName(service, in.handle()), std::nullopt);
    EXPECT_EQ(ZQMIDIGetSourceByName(service, ""), 0U);
    EXPECT_EQ(ZQMIDIGetEndpointName(service, 0), std::nullopt);
}

TEST_F(EndpointLookup, UsesThePortsNameWhenAStepToTheDeviceFails) {
    const Source& in = service.addDevice("Tormelk").addSource("Port 1");
    for (const char* step : {"MIDIEndpointGetEntity", "MIDIEntityGetDevice"}) {
        service.fail(step, -1);
        EXPECT_EQ(ZQMIDIGetEndpointName(service, in.handle()), "Port 1") << step;
        service.fail(step, noErr);
    }
    EXPECT_EQ(ZQMIDIGetEndpointName(service, in.handle()), "Tormelk Port 1");
}

TEST_F(EndpointLookup, KnowsWhichHandlesAreStillThere) {
    Source& in = service.addSource("in");
    Destination& out = service.addDestination("out");
    const MIDIEndpointRef source = in.handle();
    const MIDIEndpointRef destination = out.handle();
    EXPECT_TRUE(ZQMIDIDoesSourceStillExist(service, source));
    EXPECT_TRUE(ZQMIDIDoesDestinationStillExist(service, destination));
    EXPECT_FALSE(ZQMIDIDoesSourceStillExist(service, destination));
    EXPECT_FALSE(ZQMIDIDoesDestinationStillExist(service, source));
    EXPECT_FALSE(ZQMIDIDoesSourceStillExist(service, 0));
    in.unplug();
    out.unplug();
    EXPECT_FALSE(ZQMIDIDoesSourceStillExist(service, source));
    EXPECT_FALSE(ZQMIDIDoesDestinationStillExist(service, destination));
}

TEST_F(EndpointLookup, FindsByUniqueIDOnItsOwnSideOnly) {
    service.addSource("other");
    service.addDestination("other");
    const Source& in = service.addSource("in");
    const Destination& out = service.addDestination("out");
    EXPECT_EQ(ZQMIDIGetSourceByUniqueID(service, in.uniqueID()), in.handle());
    EXPECT_EQ(ZQMIDIGetDestinationByUniqueID(service, out.uniqueID()), out.handle());
    EXPECT_EQ(ZQMIDIGetSourceByUniqueID(service, out.uniqueID()), 0U);
    EXPECT_EQ(ZQMIDIGetDestinationByUniqueID(service, in.uniqueID()), 0U);
}

TEST_F(EndpointLookup, FindsTheFirstOfSeveralWithTheSameUniqueID) {
    Source& first = service.addSource("1");
    Source& second = service.addSource("2");
    first.setUniqueID(9);
    second.setUniqueID(9);
    EXPECT_EQ(ZQMIDIGetSourceByUniqueID(service, 9), first.handle());
}

TEST_F(EndpointLookup, IgnoresEndpointsWhoseUniqueIDCannotBeRead) {
    service.addSource("mute").removeProperty(platform::kMIDIPropertyUniqueID);
    service.addDestination("mute").removeProperty(platform::kMIDIPropertyUniqueID);
    EXPECT_EQ(ZQMIDIGetSourceByUniqueID(service, 0), 0U);
    EXPECT_EQ(ZQMIDIGetDestinationByUniqueID(service, 0), 0U);
}

TEST_F(EndpointLookup, AsksForAsManyEndpointsAsTheServiceCounts) {
    service.addSource("1");
    service.addSource("2");
    int asked = 0;
    service.onCall([&](const Call& call) {
        asked += call.operation == "MIDIGetSource" ? 1 : 0;
        return noErr;
    });
    EXPECT_EQ(ZQMIDIGetSourceByUniqueID(service, 4711), 0U);
    EXPECT_EQ(asked, 2);
}

TEST_F(EndpointLookup, FindsByTheExactComposedName) {
    const Source& in = service.addDevice("Tormelk").addSource("Port 1");
    const Destination& out = service.addDevice("Tormelk").addDestination("Port 1");
    EXPECT_EQ(ZQMIDIGetSourceByName(service, "Tormelk Port 1"), in.handle());
    EXPECT_EQ(ZQMIDIGetDestinationByName(service, "Tormelk Port 1"), out.handle());
    for (const char* other : {"Port 1", "tormelk Port 1", "Tormelk Port 1 ", ""}) {
        EXPECT_EQ(ZQMIDIGetSourceByName(service, other), 0U) << other;
        EXPECT_EQ(ZQMIDIGetDestinationByName(service, other), 0U) << other;
    }
}

TEST_F(EndpointLookup, FindsTheLowerIndexOfTwoWithTheSameName) {
    const Source& first = service.addSource("twin");
    service.addSource("twin");
    EXPECT_EQ(ZQMIDIGetSourceByName(service, "twin"), first.handle());
}

}  // namespace
}  // namespace midi
