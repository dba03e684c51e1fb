#include "architecture/Linkage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "architecture/Layering.h"
#include "architecture/Tree.h"

namespace architecture {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST(Linkage, NoCoreTestProgramLinksWindowsOrTheSystemsMidi) {
    const std::vector<std::string> programs = linesOf(TORMELK_CORE_PROGRAMS);
    ASSERT_THAT(programs, Not(IsEmpty()));
    for (const std::string& program : programs) {
        const std::vector<std::string> libraries = neededLibraries(program);
        // Proof that the program was read at all.
        EXPECT_THAT(libraries, Contains("libstdc++.so.6")) << program;
        EXPECT_THAT(forbiddenLibraries(libraries), IsEmpty()) << program;
    }
}

TEST(Linkage, NoRoomLinksWhatItMayNotInclude) {
    const std::vector<std::string> lines = linesOf(TORMELK_LINK_LINES);
    ASSERT_THAT(lines, Not(IsEmpty()));
    for (const std::string& line : lines) {
        EXPECT_THAT(linkOffences(line), IsEmpty());
    }
}

TEST(LinkageCheck, ReadsWhatAProgramNeeds) {
    EXPECT_THAT(neededLibraries(std::filesystem::read_symlink("/proc/self/exe")),
                Contains("libstdc++.so.6"));
}

#ifdef TORMELK_PROGRAM_WITH_WINDOWS
TEST(LinkageCheck, SeesThatTheEditorItselfLinksWindows) {
    EXPECT_THAT(forbiddenLibraries(neededLibraries(TORMELK_PROGRAM_WITH_WINDOWS)),
                Contains("libQt6Widgets.so.6"));
}

TEST(LinkageCheck, SeesThatTheEditorItselfLinksTheSystemsMidi) {
    EXPECT_THAT(forbiddenLibraries(neededLibraries(TORMELK_PROGRAM_WITH_WINDOWS)),
                Contains("libasound.so.2"));
}
#endif

TEST(LinkageCheck, TellsForbiddenLibrariesFromOthers) {
    EXPECT_THAT(forbiddenLibraries({"libc.so.6", "libQt6Core.so.6", "libasound.so.2", "libm.so.6"}),
                ElementsAre("libQt6Core.so.6", "libasound.so.2"));
}

TEST(LinkageCheck, SeesNoLibrariesInWhatIsNoProgram) {
    EXPECT_THAT(neededLibraries("/dev/null"), IsEmpty());
}

TEST(LinkageCheck, SeesARoomThatLinksOneAboveIt) {
    EXPECT_THAT(linkOffences("config: tables;tormelk-warnings"),
                ElementsAre("config may not link tables"));
    EXPECT_THAT(linkOffences("devices: toolkit;platform;midi;tormelk-warnings"), IsEmpty());
}

TEST(LinkageCheck, SeesWindowsInALinkLineOfACoreRoom) {
    EXPECT_THAT(linkOffences("editor: config;Qt6::Core"),
                ElementsAre("editor may not link Qt6::Core"));
    EXPECT_THAT(linkOffences("qt/surface: editor;Qt6::Widgets"), IsEmpty());
}

TEST(LinkageCheck, SeesTheSystemsMidiInALinkLine) {
    EXPECT_THAT(linkOffences("midi: platform;asound"), ElementsAre("midi may not link asound"));
    EXPECT_THAT(linkOffences("midi: ALSA::ALSA"), ElementsAre("midi may not link ALSA::ALSA"));
    EXPECT_THAT(linkOffences("platform/alsa: platform;ALSA::ALSA"), IsEmpty());
}

TEST(LinkageCheck, SeesTheArchivesLibraryInALinkLineOfAnotherRoom) {
    EXPECT_THAT(linkOffences("midi: platform;nlohmann_json::nlohmann_json"),
                ElementsAre("midi may not link nlohmann_json::nlohmann_json"));
    EXPECT_THAT(linkOffences("midi/archive: nlohmann_json::nlohmann_json"), IsEmpty());
}

TEST(LinkageCheck, SeesALibraryThatIsNoRoom) {
    EXPECT_THAT(linkOffences("helpers: config"), Not(IsEmpty()));
}

}  // namespace
}  // namespace architecture
