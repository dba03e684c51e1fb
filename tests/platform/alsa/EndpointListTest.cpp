#include "platform/alsa/EndpointList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace platform::alsa {
namespace {

using testing::SizeIs;

PortDescription port(int client, int number, const std::string& clientName,
                     const std::string& portName, Direction direction = Direction::Destination) {
    PortDescription description;
    description.address = {client, number};
    description.direction = direction;
    description.clientName = clientName;
    description.portName = portName;
    description.isOfDevice = client < 128;
    return description;
}

PortDescription tormelk(int client) {
    return port(client, 0, "Tormelk", "Tormelk MIDI 1");
}

class EndpointListTest : public testing::Test {
protected:
    /// The endpoint at a client's first port.
    const ListedEndpoint& at(int client) {
        for (const ListedEndpoint& endpoint : list.endpoints()) {
            if (endpoint.port.address.client == client) {
                return endpoint;
            }
        }
        throw std::out_of_range("no endpoint there");
    }

    MIDIObjectRef lastHandle = 0;
    EndpointList list{lastHandle};
};

TEST_F(EndpointListTest, WhatStaysKeepsItsHandleAndIsNoChange) {
    EXPECT_TRUE(list.follow({tormelk(20)}, {}));
    const MIDIEndpointRef handle = at(20).handle;
    EXPECT_FALSE(list.follow({tormelk(20)}, {}));
    EXPECT_EQ(at(20).handle, handle);
}

TEST_F(EndpointListTest, WhatHasGoneIsNotFoundAndItsHandleIsNeverGivenAgain) {
    list.follow({tormelk(20)}, {});
    const MIDIEndpointRef handle = at(20).handle;
    EXPECT_TRUE(list.follow({}, {{20, 0}}));
    EXPECT_EQ(list.find(handle), nullptr);
    list.follow({tormelk(20)}, {});
    EXPECT_NE(at(20).handle, handle);
}

TEST_F(EndpointListTest, AnotherDeviceAtTheSameAddressIsAnotherEndpoint) {
    list.follow({tormelk(20)}, {});
    const MIDIEndpointRef handle = at(20).handle;
    // It went and another came before anybody looked.
    EXPECT_TRUE(list.follow({tormelk(20)}, {{20, 0}}));
    EXPECT_NE(at(20).handle, handle);
    EXPECT_THAT(list.endpoints(), SizeIs(1));
}

TEST_F(EndpointListTest, AnotherProcessAtTheSameAddressIsAnotherEndpoint) {
    PortDescription program = port(128, 0, "Synthesizer", "in");
    program.ownerPID = 100;
    list.follow({program}, {});
    const MIDIEndpointRef handle = at(128).handle;
    program.ownerPID = 101;
    EXPECT_TRUE(list.follow({program}, {}));
    EXPECT_NE(at(128).handle, handle);
}

TEST_F(EndpointListTest, BothDirectionsOfAPortHaveHandlesAndIdsOfTheirOwn) {
    list.follow({port(20, 0, "Tormelk", "Tormelk MIDI 1", Direction::Source), tormelk(20)}, {});
    ASSERT_THAT(list.endpoints(), SizeIs(2));
    EXPECT_NE(list.endpoints()[0].handle, list.endpoints()[1].handle);
    EXPECT_NE(list.endpoints()[0].uniqueID, list.endpoints()[1].uniqueID);
}

TEST_F(EndpointListTest, ADeviceKeepsItsUniqueIdInAnotherSocket) {
    list.follow({tormelk(20)}, {});
    const std::int32_t id = at(20).uniqueID;
    list.follow({}, {{20, 0}});
    list.follow({port(20, 0, "Zwolk", "Zwolk MIDI 1"), tormelk(24)}, {});
    EXPECT_EQ(at(24).uniqueID, id);
    EXPECT_NE(at(20).uniqueID, id);
}

TEST_F(EndpointListTest, ADeviceKeepsItsUniqueIdInAnotherRun) {
    list.follow({tormelk(20)}, {});
    MIDIObjectRef handle = 1000;
    EndpointList later(handle);
    later.follow({tormelk(28)}, {});
    EXPECT_EQ(later.endpoints()[0].uniqueID, at(20).uniqueID);
}

TEST_F(EndpointListTest, TwoDevicesOfOneModelHaveDifferentIds) {
    list.follow({tormelk(20), tormelk(24)}, {});
    EXPECT_NE(at(20).uniqueID, at(24).uniqueID);
}

TEST_F(EndpointListTest, TheSecondOfTwoOfOneModelHasANumberInItsNameAndKeepsIt) {
    list.follow({tormelk(20), tormelk(24)}, {});
    EXPECT_EQ(at(20).name(), "Tormelk MIDI 1");
    EXPECT_EQ(at(24).name(), "Tormelk MIDI 1 (2)");
    list.follow({tormelk(24)}, {{20, 0}});
    EXPECT_EQ(at(24).name(), "Tormelk MIDI 1 (2)");
}

TEST_F(EndpointListTest, TheSecondOfTwoKeepsItsIdWhenTheFirstGoesAndTheFirstGetsItsOwnBack) {
    list.follow({tormelk(20), tormelk(24)}, {});
    const std::int32_t first = at(20).uniqueID;
    const std::int32_t second = at(24).uniqueID;
    list.follow({tormelk(24)}, {{20, 0}});
    EXPECT_EQ(at(24).uniqueID, second);
    list.follow({tormelk(24), tormelk(28)}, {});
    EXPECT_EQ(at(24).uniqueID, second);
    EXPECT_EQ(at(28).uniqueID, first);
}

TEST_F(EndpointListTest, ANewNameIsAChangeWithTheSameHandleAndAnotherId) {
    list.follow({tormelk(20)}, {});
    const ListedEndpoint before = at(20);
    EXPECT_TRUE(list.follow({port(20, 0, "Tormelk", "Live Port")}, {}));
    EXPECT_EQ(at(20).handle, before.handle);
    EXPECT_EQ(at(20).port.portName, "Live Port");
    EXPECT_NE(at(20).uniqueID, before.uniqueID);
}

TEST_F(EndpointListTest, TheBusHasItsMarkBeforeBothOfItsNamesAndOnlyTheBus) {
    PortDescription through = port(14, 0, "Midi Through", "Midi Through Port-0");
    through.isBus = true;
    list.follow({through, tormelk(20)}, {});
    const MIDIEntityRef bus = at(14).entity;
    EXPECT_EQ(at(14).name(), "\u21C4 Midi Through Port-0");
    EXPECT_EQ(list.findDevice(bus)->name, "\u21C4 Midi Through");
    EXPECT_EQ(at(20).name(), "Tormelk MIDI 1");
    EXPECT_EQ(list.findDevice(at(20).entity)->name, "Tormelk");
    through.clientName = "Through";
    list.follow({through, tormelk(20)}, {});
    EXPECT_EQ(list.findDevice(bus)->name, "\u21C4 Through");
}

TEST_F(EndpointListTest, PortsOfOneDeviceShareItsEntityAndDevice) {
    list.follow({port(20, 0, "Zwolk", "Zwolk MIDI 1"), port(20, 1, "Zwolk", "Zwolk MIDI 2")}, {});
    const MIDIEntityRef entity = list.endpoints()[0].entity;
    EXPECT_NE(entity, 0U);
    EXPECT_EQ(list.endpoints()[1].entity, entity);
    ASSERT_NE(list.findDevice(entity), nullptr);
    EXPECT_EQ(list.findDevice(entity)->name, "Zwolk");
    EXPECT_EQ(list.findDevice(list.findDevice(entity)->handle), list.findDevice(entity));
}

TEST_F(EndpointListTest, ADeviceGoesWithItsLastPort) {
    list.follow({tormelk(20)}, {});
    const MIDIEntityRef entity = at(20).entity;
    list.follow({}, {});
    EXPECT_EQ(list.findDevice(entity), nullptr);
}

TEST_F(EndpointListTest, AProgramsPortHasNoEntity) {
    list.follow({port(128, 0, "Synthesizer", "in")}, {});
    EXPECT_EQ(at(128).entity, 0U);
    EXPECT_EQ(list.findDevice(0), nullptr);
}

}  // namespace
}  // namespace platform::alsa
