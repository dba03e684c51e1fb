#include "architecture/TestLayering.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "architecture/Layering.h"
#include "architecture/ScratchTree.h"

namespace architecture {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path testsFolder = std::filesystem::path(TORMELK_SOURCE_DIR) / "tests";

/// What the check says about a tree of one file with one line.
std::vector<std::string> testVerdict(const std::string& file, const std::string& line) {
    const ScratchTree tree;
    tree.write(file, line + "\n");
    return testOffences(tree.root());
}

TEST(TestLayering, TestsUseWhatTheirRoomMayTheirRoomAndWhatAllTestsShare) {
    EXPECT_THAT(testOffences(testsFolder), IsEmpty());
}

TEST(TestLayering, EveryExceptionIsNeededAndHasAReason) {
    EXPECT_THAT(exceptionsInVain(testsFolder), IsEmpty());
    for (const Exception& exception : exceptions()) {
        EXPECT_FALSE(exception.reason.empty()) << exception.room;
        EXPECT_NE(findRoom(exception.room), nullptr) << exception.room;
    }
}

TEST(TestLayeringCheck, SeesATestThatUsesARoomAboveItsOwn) {
    EXPECT_THAT(testVerdict("qt/PadViewTest.cpp", "#include \"app/Demo.h\""),
                ElementsAre("qt/PadViewTest.cpp:1: the tests of qt may not use app"));
    EXPECT_THAT(testVerdict("midi/archiveTest.cpp", "#include \"devices/DevicesTest.h\""),
                ElementsAre("midi/archiveTest.cpp:1: the tests of midi may not use devices"));
}

TEST(TestLayeringCheck, SeesATestThatUsesItsRoomsNeighbour) {
    EXPECT_THAT(testVerdict("tables/dataTest.cpp", "#include \"config/layout.h\""),
                ElementsAre("tables/dataTest.cpp:1: the tests of tables may not use config"));
}

TEST(TestLayeringCheck, SeesATestThatChoosesAnImplementationOfTheMidiServiceItself) {
    EXPECT_THAT(testVerdict("midi/a.cpp", "#include \"platform/software/SoftwareMidiService.h\""),
                ElementsAre("midi/a.cpp:1: the tests of midi may not use platform/software"));
}

TEST(TestLayeringCheck, SeesWindowsInTheTestsOfACoreRoomAndAllowsThemInThoseOfTheWindows) {
    EXPECT_THAT(testVerdict("editor/padTest.cpp", "#include <QTest>"),
                ElementsAre("editor/padTest.cpp:1: the tests of editor may not include <QTest>"));
    EXPECT_THAT(testVerdict("editor/padTest.cpp", "#include \"support/windows/hands.h\""),
                ElementsAre("editor/padTest.cpp:1: the tests of editor may not use "
                            "support/windows"));
    EXPECT_THAT(testVerdict("app/AppTest.cpp", "#include <QTest>"), IsEmpty());
    EXPECT_THAT(testVerdict("app/AppTest.cpp", "#include \"support/windows/hands.h\""), IsEmpty());
}

TEST(TestLayeringCheck, AllowsTheRoomItsTestsTheRoomsBelowAndTheTestsSupport) {
    const ScratchTree tree;
    tree.write("devices/seldevTest.cpp",
               "#include \"devices/seldev.h\"\n"
               "#include <gtest/gtest.h>\n"
               "#include \"devices/DevicesTest.h\"\n"
               "#include \"midi/ZQMIDIManager.h\"\n"
               "#include \"support/ScriptedDesktop.h\"\n");
    EXPECT_THAT(testOffences(tree.root()), IsEmpty());
}

TEST(TestLayeringCheck, AllowsAnExceptionToItsRoomAlone) {
    const Exception& exception = exceptions().back();
    const std::string line = "#include \"" + exception.uses + "/Any.h\"";
    EXPECT_THAT(testVerdict(exception.room + "/Test.cpp", line), IsEmpty());
    EXPECT_THAT(testVerdict("texts/Test.cpp", line),
                ElementsAre("texts/Test.cpp:1: the tests of texts may not use " + exception.uses));
}

TEST(TestLayeringCheck, SeesAFolderThatIsNotKnown) {
    EXPECT_THAT(testVerdict("helpers/File.cpp", "#include <string>"),
                ElementsAre("helpers/File.cpp:1: the file stands in no folder that is known"));
    EXPECT_THAT(testVerdict("midi/Test.cpp", "#include \"helpers/File.h\""),
                ElementsAre("midi/Test.cpp:1: \"helpers/File.h\" names no room"));
}

TEST(TestLayeringCheck, SeesAnExceptionThatNothingNeeds) {
    const ScratchTree tree;
    EXPECT_THAT(exceptionsInVain(tree.root()), testing::SizeIs(exceptions().size()));
}

}  // namespace
}  // namespace architecture
