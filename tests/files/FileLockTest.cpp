#include "files/FileLock.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "files/TemporaryFolder.h"

namespace files {
namespace {

namespace fs = std::filesystem;
using Kind = FileLock::Kind;
using testing::IsEmpty;

TEST(FileLock, IsAFileOfItsOwnersThatOnlyOneCanMake) {
    const TemporaryFolder folder;
    const auto lock = FileLock::tryToMake(folder / "lock");
    ASSERT_TRUE(lock);
    EXPECT_TRUE(lock->isInPlace());
    EXPECT_EQ(permissions(folder / "lock"), 0600U);
    EXPECT_FALSE(FileLock::tryToMake(folder / "lock"));
    EXPECT_EQ(errno, EEXIST);
}

TEST(FileLock, KeepsAllOthersOutUntilItGoes) {
    const TemporaryFolder folder;
    {
        const auto lock = FileLock::tryToMake(folder / "lock");
        for (const Kind kind : {Kind::Shared, Kind::Exclusive}) {
            EXPECT_FALSE(FileLock::tryToLock(folder / "lock", kind));
            EXPECT_EQ(errno, EWOULDBLOCK);
        }
    }
    EXPECT_TRUE(FileLock::tryToLock(folder / "lock", Kind::Exclusive));
}

TEST(FileLock, ThatIsSharedKeepsOnlyOutWhoWantsItAlone) {
    const TemporaryFolder folder;
    write(folder / "lock", "");
    const auto one = FileLock::tryToLock(folder / "lock", Kind::Shared);
    const auto two = FileLock::tryToLock(folder / "lock", Kind::Shared);
    EXPECT_TRUE(one && two);
    EXPECT_FALSE(FileLock::tryToLock(folder / "lock", Kind::Exclusive));
}

TEST(FileLock, DiesWithTheProcess) {
    const TemporaryFolder folder;
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const auto lock = FileLock::tryToMake(folder / "lock");
        const char ready = lock ? 'y' : 'n';
        (void)!::write(ends[1], &ready, 1);
        ::pause();
        ::_exit(1);
    }
    char ready = 0;
    ASSERT_EQ(::read(ends[0], &ready, 1), 1);
    EXPECT_EQ(ready, 'y');
    EXPECT_FALSE(FileLock::tryToLock(folder / "lock", Kind::Shared));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_TRUE(FileLock::tryToLock(folder / "lock", Kind::Exclusive));
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(FileLock, KnowsWhenItsFileHasBeenRemovedOrReplaced) {
    const TemporaryFolder folder;
    const auto lock = FileLock::tryToMake(folder / "lock");
    fs::remove(folder / "lock");
    EXPECT_FALSE(lock->isInPlace());
    const auto other = FileLock::tryToMake(folder / "lock");
    EXPECT_TRUE(other && other->isInPlace());
    EXPECT_FALSE(lock->isInPlace());
}

TEST(FileLock, IsNotHadOnWhatIsNoFileOfThisFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    write(folder / "file", "");
    fs::create_symlink("file", folder / "link");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const char* name : {"folder", "link", "pipe", "absent"}) {
        EXPECT_FALSE(FileLock::tryToLock(folder / name, Kind::Shared)) << name;
        EXPECT_NE(errno, EWOULDBLOCK) << name;
    }
    EXPECT_EQ(errno, ENOENT);
}

TEST(FileLock, OfAFileThatCannotBeMadeLeavesTheReason) {
    const TemporaryFolder folder;
    CallScript script;
    script.fail("open", ENOSPC);
    EXPECT_FALSE(FileLock::tryToMake(folder / "lock"));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(FileLock, LeavesNoFileWhereTheFileSystemKnowsNoLocks) {
    const TemporaryFolder folder;
    CallScript script;
    script.fail("flock", ENOLCK);
    EXPECT_FALSE(FileLock::tryToMake(folder / "lock"));
    EXPECT_EQ(errno, ENOLCK);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(FileLock, IsNotHadOnAFileThatIsRemovedWhileItIsBeingLocked) {
    const TemporaryFolder folder;
    for (const bool isReplaced : {false, true}) {
        write(folder / "lock", "");
        CallScript script;
        script.before("flock", [&] {
            fs::remove(folder / "lock");
            if (isReplaced) {
                write(folder / "lock", "");
            }
        });
        EXPECT_FALSE(FileLock::tryToLock(folder / "lock", Kind::Exclusive));
        EXPECT_EQ(errno, EWOULDBLOCK);
    }
}

TEST(FileLock, IsTriedAgainWhenASignalBreaksIn) {
    const TemporaryFolder folder;
    CallScript script;
    script.fail("flock", EINTR, 3);
    EXPECT_TRUE(FileLock::tryToMake(folder / "lock"));
}

}  // namespace
}  // namespace files
