#include "app/Simulator.h"

#include <gtest/gtest.h>

#include "support/ScriptedMidiService.h"

namespace app {
namespace {

using platform::ServiceState;
using support::ScriptedMidiService;

/// A computer whose MIDI cannot be had at first.
struct LateMidi {
    LateMidi() {
        service.obstruct({ServiceState::Obstacle::NotLoaded, "load it"});
        service.fail("MIDISourceCreate", platform::kMIDIServerStartErr);
        service.fail("MIDIDestinationCreate", platform::kMIDIServerStartErr);
    }
    void come() {
        service.fail("MIDISourceCreate", platform::noErr);
        service.fail("MIDIDestinationCreate", platform::noErr);
        service.recover();
        service.dispatch();
    }
    ScriptedMidiService service;
};

TEST(Simulator, PublishesASourceAndADestinationAndHasNothingToSay) {
    ScriptedMidiService service;
    const Simulator simulator(service);
    EXPECT_TRUE(simulator.isPublished());
    EXPECT_EQ(service.publishedEndpoints(), 2U);
    EXPECT_EQ(simulator.trouble(), "");
}

TEST(Simulator, SaysWhyOthersCannotSeeIt) {
    LateMidi midi;
    const Simulator simulator(midi.service);
    EXPECT_FALSE(simulator.isPublished());
    EXPECT_EQ(simulator.trouble(),
              "Other programs cannot see this controller. The computer's MIDI sequencer is not "
              "loaded. To load it, run this in a terminal; it is noticed here by itself:\nload it");
}

TEST(Simulator, SaysWhatTheSystemSays) {
    LateMidi midi;
    midi.service.obstruct({ServiceState::Obstacle::Other, {}, {}, "Out of cheese"});
    EXPECT_EQ(Simulator(midi.service).trouble(),
              "Other programs cannot see this controller. The computer's MIDI sequencer cannot be "
              "opened: Out of cheese.");
}

TEST(Simulator, SaysThatItsPortCannotBeMadeWhereNothingElseIsKnown) {
    ScriptedMidiService service;
    service.fail("MIDIDestinationCreate", platform::kMIDIServerStartErr);
    const Simulator simulator(service);
    EXPECT_EQ(simulator.trouble(),
              "Other programs cannot see this controller. Its MIDI port cannot be made.");
}

TEST(Simulator, PublishesAsSoonAsThereIsAServiceAndTellsOfIt) {
    LateMidi midi;
    Simulator simulator(midi.service);
    int changes = 0;
    simulator.onChange = [&changes] { ++changes; };
    midi.come();
    EXPECT_TRUE(simulator.isPublished());
    EXPECT_EQ(simulator.trouble(), "");
    EXPECT_EQ(midi.service.publishedEndpoints(), 2U);
    EXPECT_EQ(changes, 1);
    midi.service.addDevice("Another");
    midi.service.dispatch();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(midi.service.publishedEndpoints(), 2U);
}

}  // namespace
}  // namespace app
