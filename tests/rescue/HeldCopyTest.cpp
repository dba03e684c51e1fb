#include "rescue/HeldCopy.h"

#include <cerrno>
#include <map>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "rescue/works.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::SizeIs;

class HeldCopyTest : public RescueTest {
protected:
    HeldCopy begun() {
        auto copy = HeldCopy::begin(folder);
        EXPECT_TRUE(copy);
        return std::move(*copy);
    }
    /// What the next editor would find.
    std::vector<int> found() { return numbersIn(lookInto(folder)); }
};

TEST_F(HeldCopyTest, IsItsOwnersAlone) {
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(1)).replaced);
    EXPECT_EQ(files::permissions(folder), 0700U);
    EXPECT_THAT(names(), SizeIs(3));
    for (const std::string& name : names()) {
        EXPECT_EQ(files::permissions(folder / name), 0600U) << name;
    }
}

TEST_F(HeldCopyTest, IsTwoPresetFilesLikeAnyOther) {
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(5)).replaced);
    EXPECT_EQ(files::contents(fileEndingWith("-1.Tormelk")), presetTextOf(workWith(5).shown));
    EXPECT_EQ(config::readPresetText(files::contents(fileEndingWith("-user-defined.Tormelk"))),
              workWith(5).userDefined);
}

TEST_F(HeldCopyTest, HoldsTheNewestWorkAlone) {
    HeldCopy copy = begun();
    for (int number = 1; number <= 12; ++number) {
        ASSERT_TRUE(copy.write(workWith(number)).replaced);
        EXPECT_THAT(names(), SizeIs(3));
        EXPECT_EQ(numberOf(copy.read().value_or(Work())), number);
    }
}

TEST_F(HeldCopyTest, KeepsTheOneBeforeWhereWritingFails) {
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(1)).replaced);
    // How often each is called for the first half. The folder is flushed and closed, too.
    for (const auto& [call, times] : std::map<std::string, int>{
             {"mkostemp", 1}, {"write", 1}, {"fsync", 2}, {"close", 2}, {"rename", 1}}) {
        for (const int after : {0, times}) {
            files::CallScript script;
            script.fail(call, ENOSPC, 1, after);
            const files::ReplaceResult result = copy.write(workWith(2));
            EXPECT_FALSE(result.replaced) << call << after;
            EXPECT_EQ(result.reason, "No space left on device");
            EXPECT_EQ(numberOf(copy.read().value_or(Work())), 1) << call << after;
            EXPECT_THAT(names(), SizeIs(3)) << call << after;
        }
    }
}

TEST_F(HeldCopyTest, IsThereForOthersOnlyWhenItIsHeldNoLonger) {
    {
        HeldCopy copy = begun();
        ASSERT_TRUE(copy.write(workWith(1)).replaced);
        EXPECT_FALSE(HeldCopy::take(folder, copy.stem()));
        EXPECT_THAT(found(), IsEmpty());
    }
    EXPECT_THAT(found(), testing::ElementsAre(1));
    const std::string stem = lookInto(folder).leftovers.at(0).stem;
    auto taken = HeldCopy::take(folder, stem);
    ASSERT_TRUE(taken);
    EXPECT_EQ(numberOf(taken->read().value_or(Work())), 1);
    EXPECT_FALSE(HeldCopy::take(folder, stem));
}

TEST_F(HeldCopyTest, CanBeTakenWhereSomebodyHasRemovedTheLock) {
    std::string stem;
    {
        HeldCopy copy = begun();
        stem = copy.stem();
        ASSERT_TRUE(copy.write(workWith(1)).replaced);
        fs::remove(fileEndingWith(".lock"));
        EXPECT_FALSE(copy.isInPlace());
    }
    auto taken = HeldCopy::take(folder, stem);
    ASSERT_TRUE(taken);
    EXPECT_EQ(numberOf(taken->read().value_or(Work())), 1);
    EXPECT_FALSE(HeldCopy::take(folder, stem));
}

TEST_F(HeldCopyTest, LeavesNothingBehindWhenItIsDiscarded) {
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(1)).replaced);
    HeldCopy::discard(std::move(copy));
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_TRUE(fs::exists(folder.parent_path()));
}

TEST_F(HeldCopyTest, LeavesALinkToAnotherFolderWhereItIs) {
    fs::create_directory(folder.parent_path());
    fs::create_directory(temporary / "elsewhere");
    fs::create_directory_symlink(temporary / "elsewhere", folder);
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(1)).replaced);
    EXPECT_THAT(files::namesIn(temporary / "elsewhere"), SizeIs(3));
    HeldCopy::discard(std::move(copy));
    EXPECT_TRUE(fs::is_symlink(folder));
    EXPECT_THAT(files::namesIn(temporary / "elsewhere"), IsEmpty());
}

TEST_F(HeldCopyTest, IsDiscardedWithoutATouchOnAnythingElse) {
    HeldCopy other = begun();
    ASSERT_TRUE(other.write(workWith(2)).replaced);
    files::write(folder / "Stage.Tormelk", "a person's own");
    const auto before = names();
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(1)).replaced);
    HeldCopy::discard(std::move(copy));
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(other.isInPlace());
}

TEST_F(HeldCopyTest, ThatIsDiscardedLeavesANewerOneThatCannotBeRead) {
    std::string stem;
    {
        HeldCopy copy = begun();
        stem = copy.stem();
        ASSERT_TRUE(copy.write(workWith(1)).replaced);
    }
    files::write(folder / (stem + "-2.Tormelk"), "damaged");
    auto taken = HeldCopy::take(folder, stem);
    ASSERT_TRUE(taken && taken->read());
    HeldCopy::discard(std::move(*taken));
    EXPECT_THAT(names(), testing::ElementsAre(stem + "-2.Tormelk"));
}

TEST_F(HeldCopyTest, IsDiscardedWithTheOneBeforeItThatAKillHasLeft) {
    HeldCopy copy = begun();
    ASSERT_TRUE(copy.write(workWith(1)).replaced);
    const std::string old = files::contents(fileEndingWith("-1.Tormelk"));
    const std::string oldHalf = files::contents(fileEndingWith("-1-user-defined.Tormelk"));
    ASSERT_TRUE(copy.write(workWith(2)).replaced);
    files::write(folder / (copy.stem() + "-1.Tormelk"), old);
    files::write(folder / (copy.stem() + "-1-user-defined.Tormelk"), oldHalf);
    EXPECT_EQ(numberOf(copy.read().value_or(Work())), 2);
    HeldCopy::discard(std::move(copy));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(HeldCopyTest, ThatTurnsOutToBeWholeIsNotTakenForAHalf) {
    std::string stem;
    {
        HeldCopy copy = begun();
        stem = copy.stem();
        ASSERT_TRUE(copy.write(workWith(1)).replaced);
    }
    auto taken = HeldCopy::take(folder, stem);
    ASSERT_TRUE(taken);
    HeldCopy::discardHalves(std::move(*taken));
    EXPECT_THAT(found(), testing::ElementsAre(1));
}

TEST_F(HeldCopyTest, SaysWhyItCannotBegin) {
    fs::create_directory(folder.parent_path());
    files::write(folder, "a file where the folder should be");
    EXPECT_FALSE(HeldCopy::begin(folder));
    EXPECT_EQ(errno, ENOTDIR);
    fs::remove(folder);
    files::CallScript script;
    script.fail("open", ENOSPC);
    EXPECT_FALSE(HeldCopy::begin(folder));
    EXPECT_EQ(errno, ENOSPC);
}

TEST_F(HeldCopyTest, BeginsAlsoWhereAnotherEditorHasJustRemovedTheFolder) {
    files::CallScript script;
    script.fail("open", ENOENT, 2);
    EXPECT_TRUE(HeldCopy::begin(folder));
}

TEST_F(HeldCopyTest, BeginsUnderAnotherNameWhereSomebodyWasQuickerToLock) {
    files::CallScript script;
    script.fail("flock", EWOULDBLOCK, 3);
    auto copy = HeldCopy::begin(folder);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->write(workWith(1)).replaced);
}

}  // namespace
}  // namespace rescue
