#include "rescue/leftovers.h"

#include <chrono>

#include "files/ChildProcess.h"
#include "rescue/HeldCopy.h"
#include "rescue/works.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Leftovers : public RescueTest {
protected:
    /// A dead editor's work, so many minutes old. Returns its stem.
    std::string leave(int number, int minutes) {
        auto copy = HeldCopy::begin(folder);
        EXPECT_TRUE(copy && copy->write(workWith(number)).replaced);
        const fs::path file = folder / fileName({copy->stem(), Part::Shown, 1});
        fs::last_write_time(file, fs::file_time_type::clock::now() - minutes * 1min);
        return copy->stem();
    }
};

TEST_F(Leftovers, AreNoneWhereThereIsNoFolder) {
    const Findings findings = lookInto(folder);
    EXPECT_THAT(findings.leftovers, IsEmpty());
    EXPECT_THAT(findings.leftAlone, IsEmpty());
    EXPECT_FALSE(fs::exists(folder.parent_path()));
}

TEST_F(Leftovers, AreListedFromTheNewestOnWithTheTimeAtWhichTheyWereWritten) {
    leave(2, 20);
    const std::string newest = leave(1, 10);
    leave(3, 30);
    const Findings findings = lookInto(folder);
    EXPECT_THAT(numbersIn(findings), ElementsAre(1, 2, 3));
    EXPECT_EQ(findings.leftovers.at(0).stem, newest);
    const auto age = std::chrono::system_clock::now() - findings.leftovers.at(1).written;
    EXPECT_GE(age, 20min);
    EXPECT_LE(age, 21min);
}

TEST_F(Leftovers, AreListedWithoutAChangeToAnyFile) {
    for (int number = 0; number < 13; ++number) {
        leave(number, number);
    }
    const auto before = names();
    EXPECT_THAT(lookInto(folder).leftovers, SizeIs(mostLeftovers));
    EXPECT_EQ(names(), before);
}

TEST_F(Leftovers, AreSeenByTwoEditorsThatLookAtOnce) {
    const std::string stem = leave(1, 1);
    const auto other =
        files::FileLock::tryToLock(folder / (stem + ".lock"), files::FileLock::Kind::Shared);
    ASSERT_TRUE(other);
    EXPECT_THAT(numbersIn(lookInto(folder)), ElementsAre(1));
}

TEST_F(Leftovers, AreNotWhatAnEditorThatLivesIsWriting) {
    auto living = HeldCopy::begin(folder);
    EXPECT_THAT(lookInto(folder).leftAlone, IsEmpty()) << "there is nothing yet";
    ASSERT_TRUE(living->write(workWith(1)).replaced);
    leave(2, 1);
    const Findings findings = lookInto(folder);
    EXPECT_THAT(numbersIn(findings), ElementsAre(2));
    EXPECT_THAT(findings.leftAlone,
                ElementsAre(LeftAlone{living->stem() + "-1.Tormelk", Obstacle::BeingWritten}));
}

TEST_F(Leftovers, AreListedBesideAFileThatIsLeftAlone) {
    leave(1, 1);
    const std::string damaged = leave(2, 2);
    files::write(folder / (damaged + "-1.Tormelk"), "damaged");
    leave(3, 3);
    const Findings findings = lookInto(folder);
    EXPECT_THAT(numbersIn(findings), ElementsAre(1, 3));
    EXPECT_THAT(findings.leftAlone,
                ElementsAre(LeftAlone{damaged + "-1.Tormelk", Obstacle::Damaged}));
}

TEST_F(Leftovers, AreLeftAloneWhereTheLockIsNoFile) {
    const std::string stem = leave(1, 1);
    for (const bool isFolder : {true, false}) {
        fs::remove(folder / (stem + ".lock"));
        if (isFolder) {
            fs::create_directory(folder / (stem + ".lock"));
        } else {
            fs::create_symlink("elsewhere", folder / (stem + ".lock"));
        }
        const Findings findings = lookInto(folder);
        EXPECT_THAT(findings.leftovers, IsEmpty());
        EXPECT_THAT(findings.leftAlone,
                    ElementsAre(LeftAlone{stem + "-1.Tormelk", Obstacle::Unreadable}));
    }
}

TEST_F(Leftovers, CannotBeLookedForInWhatIsNoFolderOrIsClosed) {
    fs::create_directory(folder.parent_path());
    files::write(folder, "no folder");
    EXPECT_THAT(lookInto(folder).leftAlone,
                ElementsAre(LeftAlone{"tormelk-wyro", Obstacle::Unreadable}));
    fs::remove(folder);
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms::none);
    files::asOrdinaryUser([&] {
        EXPECT_THAT(lookInto(folder).leftAlone,
                    ElementsAre(LeftAlone{"tormelk-wyro", Obstacle::Unreadable}));
    });
}

TEST_F(Leftovers, AreNoneInAHomeThatIsSomebodyElses) {
    fs::create_directories(folder);
    fs::permissions(folder.parent_path(), fs::perms::none);
    files::asOrdinaryUser([&] { EXPECT_THAT(lookInto(folder).leftAlone, IsEmpty()); });
    fs::permissions(folder.parent_path(), fs::perms::owner_all);
}

TEST_F(Leftovers, TheOldestAreDroppedSoThatSoManyStay) {
    for (int number = 0; number < 13; ++number) {
        leave(number, number);
    }
    tidy(folder, 9);
    EXPECT_THAT(numbersIn(lookInto(folder)), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_THAT(names(), SizeIs(9 * 3));
}

TEST_F(Leftovers, AreNotDroppedWhileAnotherEditorHasThem) {
    const std::string old = leave(2, 100);
    leave(1, 1);
    const auto taken = HeldCopy::take(folder, old);
    tidy(folder, 0);
    EXPECT_THAT(names(), SizeIs(3));
    EXPECT_TRUE(taken->isInPlace());
}

TEST_F(Leftovers, WhatAKilledEditorHasLeftHalfDoneIsRemoved) {
    leave(1, 1);
    const auto whole = names();
    const std::string first = "unsaved-00000001";
    const std::string second = "unsaved-00000002";
    files::write(folder / (first + ".lock"), "");
    files::write(folder / (second + "-7-user-defined.Tormelk"), "half");
    files::write(folder / ".unfinished-old", "");
    files::write(folder / ".unfinished-now", "");
    files::write(folder / "Stage.Tormelk", "a person's own");
    fs::last_write_time(folder / ".unfinished-old", fs::file_time_type::clock::now() - 2h);
    tidy(folder, 10);
    auto expected = whole;
    expected.insert(expected.begin(), "Stage.Tormelk");
    expected.insert(expected.begin(), ".unfinished-now");
    EXPECT_EQ(names(), expected);
}

TEST_F(Leftovers, TheFirstHalfOfWhatALivingEditorWritesIsNotRemoved) {
    auto living = HeldCopy::begin(folder);
    const fs::path half = folder / fileName({living->stem(), Part::UserDefined, 1});
    files::write(half, "half");
    tidy(folder, 10);
    EXPECT_TRUE(living->isInPlace());
    EXPECT_TRUE(fs::exists(half));
}

}  // namespace
}  // namespace rescue
