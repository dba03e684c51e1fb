#include "architecture/Circles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "architecture/Layering.h"
#include "architecture/ScratchTree.h"

namespace architecture {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Rooms with files that do need each other: in `midi` the process, its manager and the endpoints
/// hold one another; the others have one knot each.
const std::set<std::string> roomsWithCircles = {"files", "midi", "platform/software"};

TEST(Circles, NoFileNeedsItselfByWayOfAnother) {
    std::vector<std::string> names =
        filesInCircles(std::filesystem::path(TORMELK_SOURCE_DIR) / "src");
    std::erase_if(names, [](const std::string& name) {
        const Room* room = roomOf(name);
        return room != nullptr && roomsWithCircles.contains(room->name);
    });
    EXPECT_THAT(names, IsEmpty());
}

TEST(CirclesCheck, SeesTwoFilesThatNeedEachOtherAndTakesAHeaderAndItsSourceForOne) {
    const ScratchTree tree;
    tree.write("room/Box.h", "");
    tree.write("room/Box.cpp", "#include \"room/Box.h\"\n#include \"room/List.h\"\n");
    tree.write("room/List.h", "");
    tree.write("room/List.cpp", "#include \"room/List.h\"\n#include \"room/Box.h\"\n");
    tree.write("room/User.cpp", "#include \"room/Box.h\"\n");
    EXPECT_THAT(filesInCircles(tree.root()), ElementsAre("room/Box", "room/List"));
}

TEST(CirclesCheck, SeesACircleOfThree) {
    const ScratchTree tree;
    tree.write("a/A.h", "#include \"b/B.h\"\n");
    tree.write("b/B.h", "#include \"c/C.h\"\n");
    tree.write("c/C.cpp", "#include \"a/A.h\"\n");
    EXPECT_THAT(filesInCircles(tree.root()), ElementsAre("a/A", "b/B", "c/C"));
}

TEST(CirclesCheck, SeesNoneWhereTwoNeedAThird) {
    const ScratchTree tree;
    tree.write("room/A.h", "#include \"room/B.h\"\n#include \"room/C.h\"\n");
    tree.write("room/B.h", "#include \"room/C.h\"\n#include <room/A.h>\n");
    tree.write("room/C.h", "#include <string>\n");
    EXPECT_THAT(filesInCircles(tree.root()), IsEmpty());
}

}  // namespace
}  // namespace architecture
