#include "devices/missingMidi.h"

#include <gtest/gtest.h>

namespace devices {
namespace {

using platform::ServiceState;
using Obstacle = ServiceState::Obstacle;

TEST(MissingMidi, HasNoWordsWhereNothingIsMissing) {
    EXPECT_EQ(whyNoMidi({}), "");
    EXPECT_EQ(remedyForNoMidi({}), "");
}

TEST(MissingMidi, TellsWhoIsNotAllowedHowToBe) {
    const ServiceState midi{Obstacle::NotAllowed, "make me one", "people"};
    EXPECT_EQ(whyNoMidi(midi), "This program is not allowed to use the computer's MIDI.");
    EXPECT_EQ(remedyForNoMidi(midi),
              "Members of the group \"people\" are allowed to. To become one, run this in a "
              "terminal, then log out and log in again:\nmake me one");
}

TEST(MissingMidi, TellsHowToLoadWhatIsNotLoaded) {
    const ServiceState midi{Obstacle::NotLoaded, "load it"};
    EXPECT_EQ(whyNoMidi(midi), "The computer's MIDI sequencer is not loaded.");
    EXPECT_EQ(remedyForNoMidi(midi),
              "To load it, run this in a terminal; it is noticed here by itself:\nload it");
}

TEST(MissingMidi, OtherwiseTellsWhatTheSystemSays) {
    const ServiceState midi{Obstacle::Other, {}, {}, "Too many open files"};
    EXPECT_EQ(whyNoMidi(midi),
              "The computer's MIDI sequencer cannot be opened: Too many open files.");
    EXPECT_EQ(remedyForNoMidi(midi), "");
}

}  // namespace
}  // namespace devices
