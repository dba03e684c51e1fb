#include "architecture/TakenOverNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "architecture/ScratchTree.h"

namespace architecture {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path wholeTree = TORMELK_SOURCE_DIR;

TEST(TakenOverNames, AreUsedByTheFileThatTakesThemOver) {
    EXPECT_THAT(namesTakenOverInVain(wholeTree / "src"), IsEmpty());
    EXPECT_THAT(namesTakenOverInVain(wholeTree / "tests"), IsEmpty());
    EXPECT_THAT(namesTakenOverInVain(wholeTree / "bench"), IsEmpty());
}

TEST(TakenOverNamesCheck, SeesANameThatOnlyAnotherFileUses) {
    const ScratchTree tree;
    tree.write("room/First.cpp", "using testing::Each;\nusing testing::Not;\nint a = Not(1);\n");
    tree.write("room/Second.cpp", "using testing::Each;\nint b = Each(1);\n");
    EXPECT_THAT(namesTakenOverInVain(tree.root()), ElementsAre("room/First.cpp: Each"));
}

TEST(TakenOverNamesCheck, SeesANameThatIsPartOfAnotherOrStandsBehindItsNamespaceOrInAComment) {
    const ScratchTree tree;
    tree.write("room/One.cpp",
               "using testing::Not;\n// Not so\nint Nothing = testing::Not(IsNot);\n");
    EXPECT_THAT(namesTakenOverInVain(tree.root()), ElementsAre("room/One.cpp: Not"));
}

TEST(TakenOverNamesCheck, SeesAnotherNameOfANamespaceThatIsNotUsed) {
    const ScratchTree tree;
    tree.write("room/Used.cpp", "namespace fs = std::filesystem;\nfs::path here;\n");
    tree.write("room/Vain.cpp", "namespace fs = std::filesystem;\n");
    EXPECT_THAT(namesTakenOverInVain(tree.root()), ElementsAre("room/Vain.cpp: fs"));
}

TEST(TakenOverNamesCheck, TakesTheNamesOfAnEnumerationForUsed) {
    const ScratchTree tree;
    tree.write("room/One.cpp", "using enum config::MessageKind;\nreturn Note;\n");
    EXPECT_THAT(namesTakenOverInVain(tree.root()), testing::IsEmpty());
}

}  // namespace
}  // namespace architecture
