#include "rescue/Keeper.h"

#include <cerrno>
#include <memory>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "rescue/works.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class KeeperTest : public RescueTest {
protected:
    void change(Keeper& its, int number) { its.configurationIs(workWith(number), false, now); }
    void save(Keeper& its, int number) { its.configurationIs(workWith(number), true, now); }

    /// Time goes by; the owner comes back whenever something is due.
    std::string pass(Keeper& its, Keeper::Time::duration duration) {
        const Keeper::Time end = now + duration;
        std::string told;
        while (its.due() && *its.due() <= end) {
            now = std::max(now, *its.due());
            told += its.timePassed(now);
        }
        now = end;
        return told;
    }
    /// What the next editor finds if this one is killed now: what dead editors have left, and what
    /// the living ones are about to leave.
    std::vector<int> onDisk() {
        std::vector<int> numbers;
        std::error_code error;
        const std::vector<CopyName> all = namesIn(folder, error);
        for (const CopyName& name : all) {
            if (name.part == Part::Lock) {
                std::vector<LeftAlone> leftAlone;
                const auto copy =
                    newestWholeCopy(folder, name.stem, numbersOf(name.stem, all), leftAlone);
                numbers.push_back(copy ? numberOf(copy->work) : -1);
                EXPECT_THAT(leftAlone, IsEmpty());
            }
        }
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }
    /// A dead editor's work. Returns its stem.
    std::string leave(int number) {
        Keeper dead(folder);
        change(dead, number);
        dead.end();
        for (const Leftover& leftover : Keeper(folder).look().leftovers) {
            EXPECT_NE(numberOf(leftover.work), number);
        }
        return stemOfOnlyLiving();
    }
    std::string stemOfOnlyLiving() {
        for (const LeftAlone& file : lookInto(folder).leftAlone) {
            if (file.why == Obstacle::BeingWritten) {
                return parsedName(file.name)->stem;
            }
        }
        ADD_FAILURE() << "nobody writes";
        return "";
    }

    Keeper::Time now = Keeper::Time(1h);
    Keeper keeper{folder};
};

TEST_F(KeeperTest, LeavesNothingAnywhereWhereNothingWasChanged) {
    save(keeper, 0);
    EXPECT_THAT(keeper.look().leftovers, IsEmpty());
    EXPECT_EQ(pass(keeper, 1h), "");
    EXPECT_FALSE(keeper.due());
    keeper.end();
    EXPECT_THAT(temporary.names(), IsEmpty());
}

TEST_F(KeeperTest, KeepsAChangeWithinTwoSeconds) {
    change(keeper, 1);
    EXPECT_THAT(temporary.names(), IsEmpty()) << "not in the middle of an action";
    EXPECT_EQ(pass(keeper, 2s), "");
    EXPECT_THAT(onDisk(), ElementsAre(1));
}

TEST_F(KeeperTest, KeepsUpWithWhoGoesOnAndOn) {
    for (int number = 1; number <= 200; ++number) {
        change(keeper, number);
        pass(keeper, 100ms);
        if (number > 20) {
            ASSERT_THAT(onDisk(), SizeIs(1));
            EXPECT_GE(onDisk().at(0), number - 20) << "the state of two seconds ago";
        }
    }
}

TEST_F(KeeperTest, RestsOnceTheWorkIsKept) {
    change(keeper, 1);
    pass(keeper, 2s);
    EXPECT_FALSE(keeper.due());
    change(keeper, 1);  // a click that changes nothing
    EXPECT_FALSE(keeper.due());
}

TEST_F(KeeperTest, WritesNothingWhereAChangeIsTakenBackBeforeItWasKept) {
    change(keeper, 1);
    pass(keeper, 2s);
    const auto before = names();
    change(keeper, 2);
    change(keeper, 1);
    EXPECT_FALSE(keeper.due());
    pass(keeper, 2s);
    EXPECT_EQ(names(), before);
}

TEST_F(KeeperTest, RemovesItsCopyWhenTheWorkIsOnFileOrUndone) {
    change(keeper, 1);
    pass(keeper, 2s);
    save(keeper, 1);
    EXPECT_EQ(keeper.due(), now);
    pass(keeper, 0s);
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_FALSE(keeper.due());
    change(keeper, 2);
    save(keeper, 1);
    EXPECT_FALSE(keeper.due()) << "there is nothing to remove yet";
    pass(keeper, 2s);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(KeeperTest, KeepsWhatIsLeftToKeepAtTheEndAtOnce) {
    change(keeper, 1);
    keeper.end();
    EXPECT_THAT(onDisk(), ElementsAre(1));
    change(keeper, 2);
    pass(keeper, 2s);
    save(keeper, 2);
    keeper.end();
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(KeeperTest, TouchesNoDiskDuringATransferAndMakesUpForItAfterwards) {
    change(keeper, 1);
    keeper.transferBegins();
    keeper.transferBegins();
    EXPECT_FALSE(keeper.due());
    EXPECT_EQ(keeper.timePassed(now + 1h), "");
    EXPECT_THAT(temporary.names(), IsEmpty());
    keeper.transferEnds();
    EXPECT_FALSE(keeper.due());
    keeper.transferEnds();
    pass(keeper, 1s);
    EXPECT_THAT(onDisk(), ElementsAre(1));
    keeper.transferBegins();
    save(keeper, 1);
    EXPECT_FALSE(keeper.due());
    EXPECT_THAT(onDisk(), ElementsAre(1));
    keeper.transferEnds();
    pass(keeper, 0s);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(KeeperTest, KeepsAtOnceWhatWasNotDueYet) {
    keeper.keepNow(now);
    EXPECT_THAT(temporary.names(), IsEmpty());
    change(keeper, 1);
    keeper.keepNow(now);
    EXPECT_THAT(onDisk(), ElementsAre(1));
    EXPECT_FALSE(keeper.due());
    save(keeper, 1);
    keeper.keepNow(now);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(KeeperTest, TellsLaterWhatItCouldNotKeepAtOnce) {
    files::CallScript script;
    script.fail("mkostemp", ENOSPC, 2);
    change(keeper, 1);
    keeper.keepNow(now);
    EXPECT_EQ(keeper.due(), now);
    EXPECT_EQ(pass(keeper, 0s), "Unsaved work cannot be kept: No space left on device");
    EXPECT_FALSE(keeper.due());
}

TEST_F(KeeperTest, KeepsTheWorkWhenTheProgramEndsWithinATransfer) {
    change(keeper, 1);
    keeper.transferBegins();
    keeper.end();
    EXPECT_THAT(onDisk(), ElementsAre(1));
}

TEST_F(KeeperTest, SaysOnceThatThereIsNoSpaceAndTriesAgainWithTheNextChange) {
    files::CallScript script;
    script.fail("mkostemp", ENOSPC, 2);
    change(keeper, 1);
    EXPECT_EQ(pass(keeper, 2s), "Unsaved work cannot be kept: No space left on device");
    EXPECT_FALSE(keeper.due()) << "it does not keep on trying";
    EXPECT_FALSE(fs::exists(folder)) << "and leaves nothing behind";
    change(keeper, 2);
    EXPECT_EQ(pass(keeper, 2s), "");
    EXPECT_FALSE(fs::exists(folder));
    change(keeper, 3);
    EXPECT_EQ(pass(keeper, 2s), "");
    EXPECT_THAT(onDisk(), ElementsAre(3));
    script.fail("mkostemp", ENOSPC);
    change(keeper, 4);
    EXPECT_EQ(pass(keeper, 2s), "Unsaved work cannot be kept: No space left on device");
    EXPECT_THAT(onDisk(), ElementsAre(3)) << "the one before is better than none";
    keeper.end();
    EXPECT_THAT(onDisk(), ElementsAre(4)) << "the end is a last chance";
}

TEST_F(KeeperTest, SaysThatThereIsNoPermission) {
    fs::create_directory(folder.parent_path());
    fs::permissions(folder.parent_path(), fs::perms(0500));
    files::asOrdinaryUser([&] {
        change(keeper, 1);
        EXPECT_EQ(pass(keeper, 2s), "Unsaved work cannot be kept: Permission denied");
        keeper.end();
    });
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(KeeperTest, SaysThatThereIsNoHomeFolder) {
    Keeper homeless{std::nullopt};
    EXPECT_THAT(homeless.look().leftovers, IsEmpty());
    save(homeless, 0);
    EXPECT_EQ(pass(homeless, 2s), "");
    change(homeless, 1);
    EXPECT_EQ(pass(homeless, 2s), "Unsaved work cannot be kept: There is no home folder");
    EXPECT_FALSE(homeless.bringBack("unsaved-00000001"));
    homeless.discard("unsaved-00000001");
    homeless.end();
}

TEST_F(KeeperTest, GoesOnInAFolderThatSomebodyHasRemoved) {
    change(keeper, 1);
    pass(keeper, 2s);
    fs::remove_all(folder);
    change(keeper, 2);
    EXPECT_EQ(pass(keeper, 2s), "");
    EXPECT_THAT(onDisk(), ElementsAre(2));
    fs::remove_all(folder);
    save(keeper, 2);
    EXPECT_EQ(pass(keeper, 2s), "");
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(KeeperTest, LeavesTheCopiesOfOtherEditorsAlone) {
    Keeper other(folder);
    change(keeper, 1);
    change(other, 2);
    pass(keeper, 2s);
    pass(other, 2s);
    EXPECT_THAT(onDisk(), ElementsAre(1, 2));
    EXPECT_THAT(keeper.look().leftovers, IsEmpty());
    EXPECT_THAT(keeper.look().leftAlone, SizeIs(1)) << "its own is none";
    save(keeper, 1);
    pass(keeper, 2s);
    EXPECT_THAT(onDisk(), ElementsAre(2));
    EXPECT_THAT(other.look().leftAlone, IsEmpty());
}

TEST_F(KeeperTest, DropsTheOldestWhenItAddsACopy) {
    for (int number = 1; number <= 12; ++number) {
        leave(number);
    }
    EXPECT_THAT(onDisk(), SizeIs(10));
    change(keeper, 100);
    pass(keeper, 2s);
    EXPECT_THAT(onDisk(), SizeIs(10));
    EXPECT_EQ(onDisk().back(), 100);
}

TEST_F(KeeperTest, BringsTheWorkOfADeadEditorBackForItselfAlone) {
    auto dead = std::make_unique<Keeper>(folder);
    change(*dead, 5);
    dead->end();
    const std::string stem = stemOfOnlyLiving();
    EXPECT_FALSE(keeper.bringBack(stem)) << "it lives";
    dead.reset();
    EXPECT_THAT(numbersIn(keeper.look()), ElementsAre(5));
    const auto work = keeper.bringBack(stem);
    ASSERT_TRUE(work);
    EXPECT_EQ(numberOf(*work), 5);
    EXPECT_EQ(keeper.bringBack(stem), work);
    EXPECT_THAT(keeper.look().leftovers, IsEmpty()) << "it is not offered twice";
    EXPECT_THAT(keeper.look().leftAlone, IsEmpty());
    Keeper other(folder);
    EXPECT_THAT(other.look().leftovers, IsEmpty());
    EXPECT_FALSE(other.bringBack(stem));
    other.discard(stem);
    EXPECT_THAT(onDisk(), ElementsAre(5));
}

class BroughtBack : public KeeperTest {
protected:
    BroughtBack() {
        Keeper dead(folder);
        change(dead, 5);
        dead.end();
        stem = stemOfOnlyLiving();
    }
    void bringBack() {
        const auto work = keeper.bringBack(stem);
        ASSERT_TRUE(work);
        keeper.configurationIs(*work, false, now);
    }
    std::string stem;
};

TEST_F(BroughtBack, NeedsNoSecondCopyUntilItIsChanged) {
    bringBack();
    EXPECT_FALSE(keeper.due());
    keeper.end();
    EXPECT_THAT(onDisk(), ElementsAre(5));
    change(keeper, 6);
    pass(keeper, 2s);
    EXPECT_THAT(onDisk(), ElementsAre(5, 6));
    change(keeper, 5);  // undone
    pass(keeper, 2s);
    EXPECT_THAT(onDisk(), ElementsAre(5));
}

TEST_F(BroughtBack, IsThereStillWhenItWasUndone) {
    bringBack();
    save(keeper, 0);
    pass(keeper, 2s);
    EXPECT_THAT(onDisk(), ElementsAre(5));
}

TEST_F(BroughtBack, IsOfferedAgainWhenItWasNotSaved) {
    {
        Keeper again(folder);
        const auto work = again.bringBack(stem);
        again.configurationIs(*work, false, now);
        again.end();
    }
    EXPECT_THAT(numbersIn(keeper.look()), ElementsAre(5));
}

TEST_F(BroughtBack, IsGoneWhenItWasSavedOrIsNotWanted) {
    bringBack();
    save(keeper, 5);
    keeper.discard(stem);
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_FALSE(keeper.due());
    EXPECT_FALSE(keeper.bringBack(stem));
    EXPECT_FALSE(fs::exists(folder)) << "looking for it leaves nothing";
}

TEST_F(BroughtBack, CanBeDiscardedUnseen) {
    keeper.discard(stem);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(BroughtBack, GetsACopyOfItsOwnWhenItIsDiscardedWhileItIsUnsaved) {
    bringBack();
    keeper.discard(stem);
    EXPECT_THAT(onDisk(), IsEmpty());
    pass(keeper, 0s);
    EXPECT_THAT(onDisk(), ElementsAre(5));
}

}  // namespace
}  // namespace rescue
