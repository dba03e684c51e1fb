#include "platform/alsa/uniqueIDFor.h"

#include <gtest/gtest.h>

#include <set>

namespace platform::alsa {
namespace {

std::int32_t id(std::string_view client, std::string_view port,
                Direction direction = Direction::Destination, unsigned int occurrence = 0) {
    return uniqueIDFor(client, port, direction, occurrence, [](std::int32_t) { return false; });
}

TEST(UniqueID, NeverChangesFromOneReleaseToTheNext) {
    EXPECT_EQ(id("Tormelk", "Tormelk MIDI 1", Direction::Source), -1783410804);
    EXPECT_EQ(id("Tormelk", "Tormelk MIDI 1", Direction::Destination), -1733077947);
}

TEST(UniqueID, DiffersInEachOfTheThingsItIsMadeOf) {
    const std::set<std::int32_t> ids = {
        id("Tormelk", "Tormelk MIDI 1"),
        id("Zwolk", "Tormelk MIDI 1"),
        id("Tormelk", "Tormelk MIDI 2"),
        id("Tormelk", "Tormelk MIDI 1", Direction::Source),
        id("Tormelk", "Tormelk MIDI 1", Direction::Destination, 1),
        id("Tormelk", "Tormelk MIDI 1", Direction::Destination, 2),
        id("Tormelk", "Tormelk MIDI 1", Direction::Destination, 256),
        id("Tormelk Tormelk", "MIDI 1"),
    };
    EXPECT_EQ(ids.size(), 8U);
}

TEST(UniqueID, WhereOneNameEndsMakesADifference) {
    EXPECT_NE(id("ab", "c"), id("a", "bc"));
}

TEST(UniqueID, OneThatIsTakenIsPassedOverForTheNext) {
    const std::int32_t first = id("Tormelk", "Tormelk MIDI 1");
    EXPECT_EQ(uniqueIDFor("Tormelk", "Tormelk MIDI 1", Direction::Destination, 0,
                          [&](std::int32_t taken) { return taken == first; }),
              first + 1);
}

TEST(UniqueID, IsNeverZero) {
    // This name leads to -171: with that and all up to -1 taken, the search comes to zero.
    ASSERT_EQ(id("Port 4101822", "", Direction::Source), -171);
    EXPECT_EQ(uniqueIDFor("Port 4101822", "", Direction::Source, 0,
                          [](std::int32_t taken) { return taken < 0; }),
              1);
}

}  // namespace
}  // namespace platform::alsa
