#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kernel/UsbMidiGadget.h"
#include "kernel/UserSpaceMidiDevice.h"
#include "kernel/service/EndpointLayer.h"

// What is listed, under which names, in which order.

namespace kernel {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

TEST(Setup, ListsWhatIsThereByDisplayName) {
    UsbMidiGadget zwolk({.product = "Zwolk", .ports = 2});
    UsbMidiGadget tormelk({.product = "tormelk"});
    UserSpaceMidiDevice named({.product = "Aube", .portNames = {"Live Port"}});
    zwolk.plug();
    tormelk.plug();
    named.plug();
    EndpointLayer layer;
    const auto expected =
        ElementsAre("Aube Live Port", "Midi Through Port-0", "tormelk MIDI 1",
                    "Virtual Raw MIDI 0-0 VirMIDI 0-0", "Zwolk MIDI 1", "Zwolk MIDI 2");
    EXPECT_THAT(layer.sourceNames(), expected);
    EXPECT_THAT(layer.destinationNames(), expected);
}

TEST(Setup, FollowsADeviceThatIsPluggedInAndOut) {
    EndpointLayer layer;
    UsbMidiGadget tormelk({});
    tormelk.plug();
    ASSERT_TRUE(layer.runUntil([&] { return layer.destination("Tormelk MIDI 1") != nullptr; }));
    const midi::ZQMIDIRealDestination* const object = layer.destination("Tormelk MIDI 1");
    const std::int32_t id = object->uniqueID();
    EXPECT_NE(id, 0);
    EXPECT_TRUE(object->isOnline());
    tormelk.unplug();
    ASSERT_TRUE(layer.runUntil([&] { return object->isOffline(); }));
    EXPECT_EQ(object->displayName(), "Tormelk MIDI 1 (offline)");
    tormelk.plug();
    ASSERT_TRUE(layer.runUntil([&] { return object->isOnline(); }));
    EXPECT_EQ(layer.destination("Tormelk MIDI 1"), object);
    EXPECT_EQ(object->uniqueID(), id);
}

TEST(Setup, OnlyTheBusBetweenProgramsCountsAsOne) {
    EndpointLayer layer;
    for (const auto& destination : layer.manager().realDestinations()) {
        EXPECT_EQ(destination->isIACBus(), destination->displayName() == "Midi Through Port-0")
            << destination->displayName();
    }
}

}  // namespace
}  // namespace kernel
