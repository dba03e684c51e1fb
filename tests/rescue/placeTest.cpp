#include "rescue/place.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace rescue {
namespace {

TEST(Place, IsInTheFolderThatTheEnvironmentNamesForIt) {
    EXPECT_EQ(place("/var/state", "/home/owner"), "/var/state/tormelk-wyro");
    EXPECT_EQ(place("/var/state/", nullptr), "/var/state/tormelk-wyro");
}

TEST(Place, IsInTheHomeFolderWhereNoneIsNamed) {
    EXPECT_EQ(place(nullptr, "/home/owner"), "/home/owner/.local/state/tormelk-wyro");
    EXPECT_EQ(place("", "/home/owner"), "/home/owner/.local/state/tormelk-wyro");
}

TEST(Place, DoesNotGoByAPathThatDependsOnWhereTheProgramWasStarted) {
    for (const char* relative : {"state", "./state", "../state", "~/state"}) {
        EXPECT_EQ(place(relative, "/home/owner"), "/home/owner/.local/state/tormelk-wyro");
        EXPECT_EQ(place(relative, relative), std::nullopt);
    }
}

TEST(Place, IsNowhereWithoutAHomeFolder) {
    EXPECT_EQ(place(nullptr, nullptr), std::nullopt);
    EXPECT_EQ(place("", ""), std::nullopt);
}

TEST(Place, GoesByTheEnvironmentOfTheProcess) {
    ::setenv("XDG_STATE_HOME", "/somewhere/state", 1);
    EXPECT_EQ(place(), "/somewhere/state/tormelk-wyro");
    ::unsetenv("XDG_STATE_HOME");
    ::setenv("HOME", "/home/somebody", 1);
    EXPECT_EQ(place(), "/home/somebody/.local/state/tormelk-wyro");
    ::unsetenv("HOME");
    EXPECT_EQ(place(), std::nullopt);
}

}  // namespace
}  // namespace rescue
