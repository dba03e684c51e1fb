#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using Properties = SoftwareMidiTest;

TEST_F(Properties, AreReadByTypeAndName) {
    Source& source = service.addSource("Port 1");
    source.setIntegerProperty("ZQMIDIOwnerPID", 77);
    source.setConnectedUniqueIDs(std::vector<std::int32_t>{1, -2, 0x01020304});
    std::string name;
    EXPECT_EQ(service.MIDIObjectGetStringProperty(source.handle(), kMIDIPropertyName, &name),
              noErr);
    EXPECT_EQ(name, "Port 1");
    std::int32_t pid = 0;
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(source.handle(), "ZQMIDIOwnerPID", &pid), noErr);
    EXPECT_EQ(pid, 77);
    std::vector<std::uint8_t> data;
    EXPECT_EQ(
        service.MIDIObjectGetDataProperty(source.handle(), kMIDIPropertyConnectionUniqueID, &data),
        noErr);
    EXPECT_EQ(data, (std::vector<std::uint8_t>{0, 0, 0, 1, 0xFF, 0xFF, 0xFF, 0xFE, 1, 2, 3, 4}));
}

TEST_F(Properties, ThatAreMissingLeaveTheOutputAsItWas) {
    const Source& source = service.addSource("Port 1");
    std::string text = "t";
    std::int32_t number = 5;
    std::vector<std::uint8_t> data = {1};
    EXPECT_EQ(service.MIDIObjectGetStringProperty(source.handle(), "x", &text), -10835);
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(source.handle(), "x", &number), -10835);
    EXPECT_EQ(service.MIDIObjectGetDataProperty(source.handle(), "x", &data), -10835);
    EXPECT_EQ(text, "t");
    EXPECT_EQ(number, 5);
    EXPECT_EQ(data, std::vector<std::uint8_t>{1});
}

TEST_F(Properties, OfAnotherTypeAreToldApartFromMissingOnes) {
    Source& source = service.addSource("Port 1");
    source.setDataProperty("data", {1});
    std::int32_t number = 5;
    std::string text;
    std::vector<std::uint8_t> data;
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(source.handle(), kMIDIPropertyName, &number),
              kMIDIWrongPropertyType);
    EXPECT_EQ(service.MIDIObjectGetStringProperty(source.handle(), "data", &text),
              kMIDIWrongPropertyType);
    EXPECT_EQ(service.MIDIObjectGetDataProperty(source.handle(), kMIDIPropertyUniqueID, &data),
              kMIDIWrongPropertyType);
}

TEST_F(Properties, CanBeWrittenByClients) {
    const Destination& port = service.addDestination("Port 1");
    EXPECT_EQ(service.MIDIObjectSetStringProperty(port.handle(), kMIDIPropertyName, "New"), noErr);
    EXPECT_EQ(service.MIDIObjectSetIntegerProperty(port.handle(), "custom", -1), noErr);
    EXPECT_EQ(port.stringProperty(kMIDIPropertyName), "New");
    EXPECT_EQ(port.integerProperty("custom"), -1);
}

TEST_F(Properties, CanBeRemoved) {
    Destination& port = service.addDestination("Port 1");
    port.removeProperty(kMIDIPropertyName);
    port.removeProperty(kMIDIPropertyUniqueID);
    std::string name;
    std::int32_t id = 0;
    EXPECT_EQ(service.MIDIObjectGetStringProperty(port.handle(), kMIDIPropertyName, &name), -10835);
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(port.handle(), kMIDIPropertyUniqueID, &id),
              -10835);
}

TEST_F(Properties, KeepUniqueIDsUnique) {
    const Destination& one = service.addDestination("1");
    const Destination& two = service.addDestination("2");
    const auto setID = [&](const Object& object, std::int32_t id) {
        return service.MIDIObjectSetIntegerProperty(object.handle(), kMIDIPropertyUniqueID, id);
    };
    EXPECT_EQ(setID(two, one.uniqueID()), kMIDIIDNotUnique);
    EXPECT_EQ(setID(two, 0), kMIDIIDNotUnique);
    EXPECT_NE(two.uniqueID(), one.uniqueID());
    EXPECT_EQ(setID(two, two.uniqueID()), noErr);
    EXPECT_EQ(setID(two, 55), noErr);
    EXPECT_EQ(two.uniqueID(), 55);
}

TEST_F(Properties, OfNoObjectCannotBeWritten) {
    EXPECT_EQ(service.MIDIObjectSetStringProperty(0, kMIDIPropertyName, "x"), kMIDIObjectNotFound);
    EXPECT_EQ(service.MIDIObjectSetIntegerProperty(0, kMIDIPropertyUniqueID, 5),
              kMIDIObjectNotFound);
}

}  // namespace
}  // namespace platform::software
