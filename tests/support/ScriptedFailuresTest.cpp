#include "platform/software/SoftwareMidiTest.h"

namespace platform::software {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using ScriptedFailures = SoftwareMidiTest;

TEST_F(ScriptedFailures, LeaveNoClient) {
    service.fail("MIDIClientCreate", kMIDIServerStartErr);
    MIDIClientRef failed = 3;
    EXPECT_EQ(service.MIDIClientCreate("x", nullptr, nullptr, &failed), kMIDIServerStartErr);
    EXPECT_EQ(failed, 0U);
    EXPECT_EQ(service.clients(), 1U);
}

TEST_F(ScriptedFailures, LeaveNoPort) {
    service.fail("MIDIOutputPortCreate", -1);
    service.fail("MIDIInputPortCreate", -2);
    MIDIPortRef port = 3;
    EXPECT_EQ(service.MIDIOutputPortCreate(client, "x", &port), -1);
    EXPECT_EQ(port, 0U);
    EXPECT_EQ(service.MIDIInputPortCreate(client, "x", nullptr, nullptr, &port), -2);
    EXPECT_EQ(service.outputPortsCreated() + service.inputPortsCreated(), 0U);
}

TEST_F(ScriptedFailures, CanBeForOnePropertyAndEnd) {
    const Source& in = service.addSource("in");
    std::int32_t id = 0;
    std::string name;
    service.fail("MIDIObjectGetIntegerProperty", -5, kMIDIPropertyUniqueID);
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(in.handle(), kMIDIPropertyUniqueID, &id), -5);
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(in.handle(), "other", &id),
              kMIDIUnknownProperty);
    service.fail("MIDIObjectGetIntegerProperty", noErr, kMIDIPropertyUniqueID);
    EXPECT_EQ(service.MIDIObjectGetIntegerProperty(in.handle(), kMIDIPropertyUniqueID, &id), noErr);
}

TEST_F(ScriptedFailures, OfASendDeliverNothing) {
    Destination& out = service.addDestination("out");
    const MIDIPortRef port = outputPort();
    service.fail("MIDISend", -3);
    EXPECT_EQ(service.MIDISend(port, out.handle(), makeOnePacketList(noteOn).get()), -3);
    EXPECT_THAT(service.at(out).received(), IsEmpty());
    service.MIDIPortDispose(port);
}

TEST_F(ScriptedFailures, OfCountingCountNothing) {
    service.addSource("in");
    service.addDestination("out");
    service.fail("MIDIGetNumberOfSources", -3);
    service.fail("MIDIGetNumberOfDestinations", -3);
    EXPECT_THAT(sources(), IsEmpty());
    EXPECT_THAT(destinations(), IsEmpty());
}

TEST_F(ScriptedFailures, CanBeDecidedCallByCall) {
    Destination& out = service.addDestination("out");
    const MIDIPortRef port = outputPort();
    std::vector<std::string> calls;
    service.onCall([&](const support::Call& call) {
        calls.emplace_back(call.operation);
        if (call.operation == "MIDISend") {
            out.unplug();  // just before it is reached
        }
        return noErr;
    });
    EXPECT_EQ(service.MIDISend(port, out.handle(), makeOnePacketList(noteOn).get()),
              kMIDIUnknownEndpoint);
    service.onCall(nullptr);
    service.MIDIPortDispose(port);
    EXPECT_THAT(calls, ElementsAre("MIDISend"));
}

}  // namespace
}  // namespace platform::software
