#include "platform/software/Devices.h"

#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Devices = SoftwareMidiTest;

TEST_F(Devices, ListsNothingWithoutAClient) {
    const Source& source = service.addSource("a");
    service.addDestination("b");
    EXPECT_THAT(sources(), ElementsAre(source.handle()));
    service.MIDIClientDispose(client);
    EXPECT_EQ(service.MIDIGetNumberOfSources(), 0U);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 0U);
    EXPECT_EQ(service.MIDIGetSource(0), 0U);
    EXPECT_EQ(service.MIDIGetDestination(0), 0U);
}

TEST_F(Devices, ListsEndpointsInTheOrderInWhichTheyCame) {
    Device& device = service.addDevice("Tormelk");
    const Source& in = device.addSource("Port 1");
    const Destination& out = device.addDestination("Port 1");
    const Source& other = service.addSource("Other");
    EXPECT_THAT(sources(), ElementsAre(in.handle(), other.handle()));
    EXPECT_THAT(destinations(), ElementsAre(out.handle()));
}

TEST_F(Devices, GivesNoEndpointOutsideTheList) {
    service.addSource("a");
    service.addDestination("b");
    EXPECT_EQ(service.MIDIGetSource(1), 0U);
    EXPECT_EQ(service.MIDIGetDestination(1), 0U);
    EXPECT_EQ(service.MIDIGetSource(0xFFFFFFFFU), 0U);
}

TEST_F(Devices, LeadFromAnEndpointOverItsEntityToItsDevice) {
    Device& device = service.addDevice("Tormelk");
    const Destination& out = device.addDestination("Port 1");
    MIDIEntityRef entity = 0;
    MIDIDeviceRef found = 0;
    ASSERT_EQ(service.MIDIEndpointGetEntity(out.handle(), &entity), noErr);
    ASSERT_EQ(service.MIDIEntityGetDevice(entity, &found), noErr);
    EXPECT_EQ(found, device.handle());
}

TEST_F(Devices, GroupEndpointsByTheEntityThatWasAddedLast) {
    Device& device = service.addDevice("Tormelk");
    Entity& first = device.addEntity();
    const Source& in = device.addSource("1");
    Entity& second = device.addEntity();
    const Source& otherIn = device.addSource("2");
    MIDIEntityRef entity = 0;
    service.MIDIEndpointGetEntity(in.handle(), &entity);
    EXPECT_EQ(entity, first.handle());
    service.MIDIEndpointGetEntity(otherIn.handle(), &entity);
    EXPECT_EQ(entity, second.handle());
}

TEST_F(Devices, AreNotBehindAPortOfAnotherProgram) {
    const Source& source = service.addSource("Sequencer");
    MIDIEntityRef entity = 5;
    EXPECT_EQ(service.MIDIEndpointGetEntity(source.handle(), &entity), kMIDIObjectNotFound);
    EXPECT_EQ(entity, 5U);
}

TEST_F(Devices, VanishWithAllTheirPartsWhenUnplugged) {
    Device& device = service.addDevice("Tormelk");
    const Source& in = device.addSource("Port 1");
    const Destination& out = device.addDestination("Port 1");
    const MIDIEndpointRef handle = in.handle();
    device.unplug();
    EXPECT_FALSE(device.isPlugged());
    EXPECT_EQ(in.handle(), 0U);
    EXPECT_EQ(out.handle(), 0U);
    EXPECT_THAT(sources(), IsEmpty());
    EXPECT_THAT(destinations(), IsEmpty());
    std::string name = "unchanged";
    EXPECT_EQ(service.MIDIObjectGetStringProperty(handle, kMIDIPropertyName, &name),
              kMIDIObjectNotFound);
    EXPECT_EQ(name, "unchanged");
}

TEST_F(Devices, ComeBackUnderNewHandlesWithTheirProperties) {
    Device& device = service.addDevice("Tormelk");
    const Source& in = device.addSource("Port 1");
    const MIDIEndpointRef before = in.handle();
    const std::int32_t id = in.uniqueID();
    device.unplug();
    device.plug();
    EXPECT_NE(in.handle(), 0U);
    EXPECT_NE(in.handle(), before);
    EXPECT_EQ(in.uniqueID(), id);
    EXPECT_THAT(sources(), ElementsAre(in.handle()));
    MIDIEntityRef entity = 0;
    MIDIDeviceRef found = 0;
    ASSERT_EQ(service.MIDIEndpointGetEntity(in.handle(), &entity), noErr);
    ASSERT_EQ(service.MIDIEntityGetDevice(entity, &found), noErr);
    EXPECT_EQ(found, device.handle());
}

TEST_F(Devices, CanComeBackWithAnotherUniqueID) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    device.unplug();
    in.setUniqueID(4711);
    device.plug();
    std::int32_t id = 0;
    service.MIDIObjectGetIntegerProperty(in.handle(), kMIDIPropertyUniqueID, &id);
    EXPECT_EQ(id, 4711);
}

TEST_F(Devices, PlugInOnceOnly) {
    Device& device = service.addDevice("Tormelk");
    const Source& in = device.addSource("Port 1");
    const MIDIEndpointRef handle = in.handle();
    device.plug();
    EXPECT_EQ(in.handle(), handle);
    EXPECT_THAT(sources(), ElementsAre(handle));
    device.unplug();
    device.unplug();
    EXPECT_THAT(sources(), IsEmpty());
}

TEST_F(Devices, ThatAreUnpluggedTakeNewPortsButShowThemOnlyWhenPlugged) {
    Device& device = service.addDevice("Tormelk");
    device.unplug();
    const Source& in = device.addSource("Port 1");
    EXPECT_THAT(sources(), IsEmpty());
    device.plug();
    EXPECT_THAT(sources(), ElementsAre(in.handle()));
}

TEST_F(Devices, ThatAreUnpluggedTakeNewEntitiesButShowThemOnlyWhenPlugged) {
    Device& device = service.addDevice("Tormelk");
    device.unplug();
    const Entity& entity = device.addEntity();
    MIDIObjectRef found = 0;
    MIDIObjectType type = 0;
    EXPECT_FALSE(entity.isPlugged());
    EXPECT_EQ(service.MIDIObjectFindByUniqueID(entity.uniqueID(), &found, &type),
              kMIDIObjectNotFound);
    device.plug();
    EXPECT_TRUE(entity.isPlugged());
    EXPECT_EQ(service.MIDIObjectFindByUniqueID(entity.uniqueID(), &found, &type), noErr);
    EXPECT_EQ(found, entity.handle());
}

TEST_F(Devices, CanLoseASinglePort) {
    Device& device = service.addDevice("Tormelk");
    Source& in = device.addSource("Port 1");
    const Source& kept = device.addSource("Port 2");
    in.unplug();
    EXPECT_THAT(sources(), ElementsAre(kept.handle()));
    in.plug();
    EXPECT_THAT(sources(), ElementsAre(kept.handle(), in.handle()));
}

TEST_F(Devices, GetUniqueIDsOfTheirOwn) {
    Device& device = service.addDevice("Tormelk");
    const Source& in = device.addSource("Port 1");
    const Destination& out = device.addDestination("Port 1");
    EXPECT_NE(in.uniqueID(), 0);
    EXPECT_NE(in.uniqueID(), out.uniqueID());
    EXPECT_NE(in.uniqueID(), device.uniqueID());
}

TEST_F(Devices, AreFoundByUniqueIDWithTheirType) {
    Device& device = service.addDevice("Tormelk");
    const Entity& entity = device.addEntity();
    const Source& in = device.addSource("Port 1");
    const Destination& out = device.addDestination("Port 1");
    Device& keyboard = service.addExternalDevice("Keyboard");
    const Source& keys = keyboard.addSource("Keys");
    const Destination& pedals = keyboard.addDestination("Pedals");
    const std::vector<std::pair<const Object*, MIDIObjectType>> expected = {
        {&device, 0},    {&entity, 1}, {&in, 2},     {&out, 3},
        {&keyboard, 16}, {&keys, 18},  {&pedals, 19}};
    for (const auto& [object, type] : expected) {
        MIDIObjectRef found = 0;
        MIDIObjectType foundType = -1;
        ASSERT_EQ(service.MIDIObjectFindByUniqueID(object->uniqueID(), &found, &foundType), noErr);
        EXPECT_EQ(found, object->handle());
        EXPECT_EQ(foundType, type);
    }
}

TEST_F(Devices, AreNotFoundByAnIDThatNothingHas) {
    MIDIObjectRef found = 3;
    MIDIObjectType type = 4;
    EXPECT_EQ(service.MIDIObjectFindByUniqueID(12, &found, &type), kMIDIObjectNotFound);
    EXPECT_EQ(found, 3U);
    EXPECT_EQ(type, 4);
}

TEST_F(Devices, ThatAreExternalAreInNoList) {
    Device& keyboard = service.addExternalDevice("Keyboard");
    const Source& keys = keyboard.addSource("Keys");
    keyboard.addDestination("Pedals");
    EXPECT_THAT(sources(), IsEmpty());
    EXPECT_THAT(destinations(), IsEmpty());
    MIDIEntityRef entity = 0;
    MIDIDeviceRef device = 0;
    ASSERT_EQ(service.MIDIEndpointGetEntity(keys.handle(), &entity), noErr);
    ASSERT_EQ(service.MIDIEntityGetDevice(entity, &device), noErr);
    EXPECT_EQ(device, keyboard.handle());
}

}  // namespace
}  // namespace platform::software
