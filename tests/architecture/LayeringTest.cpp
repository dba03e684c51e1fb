#include "architecture/Layering.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "architecture/ScratchTree.h"
#include "architecture/Tree.h"

namespace architecture {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

const std::filesystem::path source = TORMELK_SOURCE_DIR;

/// What the check says about a tree of one file with one line.
std::vector<std::string> verdict(const std::string& file, const std::string& line) {
    const ScratchTree tree;
    tree.write(file, line + "\n");
    return layeringOffences(tree.root());
}

TEST(Layering, EveryArrowBetweenTheRoomsPointsDown) {
    EXPECT_THAT(layeringOffences(source / "src"), IsEmpty());
}

TEST(Layering, EveryArrowOfTheTableIsUsed) {
    EXPECT_THAT(unusedArrows(source / "src"), IsEmpty());
}

TEST(Layering, OneFileKnowsTheLibraryBehindTheArchive) {
    EXPECT_THAT(filesThatKnowTheArchive(source / "src"), SizeIs(1));
}

TEST(Layering, EveryFolderOfTheSourceIsARoomWithARuleAndEveryRoomIsAFolder) {
    std::set<std::string> names;
    for (const Room& room : rooms()) {
        names.insert(room.name);
    }
    std::set<std::string> folders;
    for (const std::filesystem::path& file : filesUnder(source / "src", {".h", ".cpp"})) {
        folders.insert(file.parent_path().generic_string());
    }
    EXPECT_EQ(folders, names);
}

TEST(Layering, ARoomUsesOnlyRoomsThatStandAboveItInTheTable) {
    for (auto room = rooms().begin(); room != rooms().end(); ++room) {
        for (const std::string& used : room->uses) {
            EXPECT_NE(std::find_if(rooms().begin(), room,
                                   [&used](const Room& below) { return below.name == used; }),
                      room)
                << room->name << " uses " << used;
        }
    }
}

TEST(LayeringCheck, SeesAnArrowThatPointsUp) {
    EXPECT_THAT(verdict("config/stores.cpp", "#include \"editor/mainController.h\""),
                ElementsAre("config/stores.cpp:1: config may not use editor"));
}

TEST(LayeringCheck, SeesARoomThatUsesItsNeighbour) {
    EXPECT_THAT(verdict("tables/data.cpp", "#  include \"config/layout.h\""),
                ElementsAre("tables/data.cpp:1: tables may not use config"));
}

TEST(LayeringCheck, SeesAnArrowBetweenTwoInnerRoomsThatPointsUp) {
    EXPECT_THAT(verdict("qt/widgets/DialogView.h", "#include \"qt/windows/FirmView.h\""),
                ElementsAre("qt/widgets/DialogView.h:1: qt/widgets may not use qt/windows"));
    EXPECT_THAT(verdict("qt/windows/FirmView.h", "#include \"qt/widgets/DialogView.h\""),
                IsEmpty());
}

TEST(LayeringCheck, SeesARoomThatChoosesAnImplementationOfTheMidiService) {
    EXPECT_THAT(verdict("midi/ZQMIDIManager.cpp", "#include \"platform/software/Service.h\""),
                ElementsAre("midi/ZQMIDIManager.cpp:1: midi may not use platform/software"));
    EXPECT_THAT(verdict("app/demo.cpp", "#include \"platform/software/Service.h\""), IsEmpty());
}

TEST(LayeringCheck, SeesQtInEveryCoreRoom) {
    for (const Room& room : rooms()) {
        for (const char* const header : {"QWidget", "QtCore/QString", "QtWidgets"}) {
            EXPECT_THAT(verdict(room.name + "/File.h", std::string("#include <") + header + ">"),
                        SizeIs(room.core ? 1 : 0))
                << room.name << " " << header;
        }
    }
}

TEST(LayeringCheck, SeesTheSystemsMidiInEveryRoomButItsOwn) {
    for (const Room& room : rooms()) {
        EXPECT_THAT(verdict(room.name + "/File.cpp", "#include <alsa/asoundlib.h>"),
                    SizeIs(room.name == "platform/alsa" ? 0 : 1))
            << room.name;
    }
}

TEST(LayeringCheck, SeesTheArchivesLibraryOutsideItsRoom) {
    for (const Room& room : rooms()) {
        EXPECT_THAT(verdict(room.name + "/File.cpp", "#include <nlohmann/json.hpp>"),
                    SizeIs(room.name == "midi/archive" ? 0 : 1))
            << room.name;
    }
}

TEST(LayeringCheck, SeesASecondFileThatKnowsTheArchivesLibrary) {
    const ScratchTree tree;
    tree.write("midi/a.cpp", "#include <nlohmann/json.hpp>\n#include <nlohmann/json_fwd.hpp>\n");
    tree.write("midi/b.cpp", "#include <nlohmann/json.hpp>\n");
    EXPECT_THAT(filesThatKnowTheArchive(tree.root()), ElementsAre("midi/a.cpp", "midi/b.cpp"));
}

TEST(LayeringCheck, SeesAFileOutsideTheRooms) {
    EXPECT_THAT(verdict("helpers/File.cpp", "#include <string>"),
                ElementsAre("helpers/File.cpp:1: the file stands in no room that is known"));
}

TEST(LayeringCheck, SeesAnIncludeThatDoesNotNameItsRoom) {
    EXPECT_THAT(verdict("midi/File.cpp", "#include \"File.h\""),
                ElementsAre("midi/File.cpp:1: \"File.h\" names no room"));
}

TEST(LayeringCheck, AllowsTheRoomItselfTheRoomsBelowAndTheStandardLibrary) {
    const ScratchTree tree;
    tree.write("devices/seldev.cpp",
               "#include \"devices/seldev.h\"\n"
               "#include <string_view>\n"
               "#include \"midi/ZQMIDIManager.h\"\n"
               "#include \"platform/MidiService.h\"\n");
    EXPECT_THAT(layeringOffences(tree.root()), IsEmpty());
}

TEST(LayeringCheck, SeesAnArrowOfTheTableThatNothingUses) {
    const ScratchTree tree;
    tree.write("describe/a.cpp", "#include \"config/b.h\"\n#include \"texts/c.h\"\n");
    const std::vector<std::string> unused = unusedArrows(tree.root());
    EXPECT_THAT(unused, Contains("describe: tables"));
    EXPECT_THAT(unused, Not(Contains("describe: config")));
}

TEST(LayeringCheck, CountsNoIncludeInAComment) {
    EXPECT_THAT(verdict("config/stores.cpp", "// #include <QWidget>"), IsEmpty());
}

}  // namespace
}  // namespace architecture
