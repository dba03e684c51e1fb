#include "files/overwriteFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "files/TemporaryFolder.h"
#include "files/refusals.h"

// Files that are written over in place. They are longer than a page, before and after, and a short
// piece of them is written at a time, so that a failure can come in the middle.

namespace files {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class OverwriteFile : public testing::Test {
protected:
    OverwriteFile() { write(file, old); }

    void expectWritten(std::string_view bytes) {
        const ReplaceResult result = overwriteFile(file, bytes);
        EXPECT_TRUE(result.replaced);
        EXPECT_FALSE(result.inOneStep);
        EXPECT_EQ(result.reason, "");
        EXPECT_EQ(contents(file), bytes);
        EXPECT_THAT(folder.names(), ElementsAre("file"));
    }

    const TemporaryFolder folder;
    const fs::path file = folder / "file";
    const std::string old = std::string(5000, 'o') + std::string("\n\0\xFF", 3);
    const std::string shorter = std::string(4500, 's');
    const std::string longer = std::string(9000, 'l');
};

TEST_F(OverwriteFile, GivesAFileNewContentsOfAnyLength) {
    for (const std::string& bytes :
         {shorter, longer, std::string(), old, std::string("\0\xFF", 2)}) {
        expectWritten(bytes);
    }
}

TEST_F(OverwriteFile, KeepsTheFileItself) {
    fs::permissions(file, fs::perms(0640));
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::stat(file.c_str(), &before), 0);
    expectWritten(longer);
    ASSERT_EQ(::stat(file.c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(permissions(file), 0640U);
}

TEST_F(OverwriteFile, AsksForSpaceWritesFlushesAndReadsBack) {
    CallScript script;
    expectWritten(longer);
    EXPECT_THAT(script.calls(), ElementsAre("open", "read", "read", "fallocate", "write",
                                            "ftruncate", "fsync", "read", "read", "close"));
}

TEST_F(OverwriteFile, GoesOnAfterShortAndInterruptedCalls) {
    CallScript script;
    script.shorten(7);
    for (const char* const call : {"open", "read", "write", "ftruncate", "fsync"}) {
        script.fail(call, EINTR, 3);
    }
    expectWritten(longer);
}

TEST_F(OverwriteFile, TakesAFileSystemAtItsWordThatCannotKeepSpace) {
    for (const int error : {EOPNOTSUPP, ENOSYS, EINVAL, EINTR}) {
        CallScript script;
        script.fail("fallocate", error);
        expectWritten(error == EINTR ? shorter : longer);
    }
}

TEST_F(OverwriteFile, TouchesNothingWhereThereIsNoSpace) {
    for (const int error : {ENOSPC, EDQUOT, EFBIG}) {
        CallScript script;
        script.fail("fallocate", error);
        expectRefused(overwriteFile(file, longer), wordFor(error));
        EXPECT_THAT(script.calls(), ElementsAre("open", "read", "read", "fallocate", "close"));
        EXPECT_EQ(contents(file), old);
    }
}

TEST_F(OverwriteFile, TouchesNothingOnADiskThatIsReallyFull) {
    withFileSystem(folder.path(), "size=16k", [&] {
        write(file, old);
        write(folder / "filler", std::string(8192, 'x'));
        expectRefused(overwriteFile(file, longer), wordFor(ENOSPC));
        EXPECT_EQ(contents(file), old);
        EXPECT_TRUE(overwriteFile(file, std::string(8192, 'n')).replaced);
        EXPECT_EQ(contents(file), std::string(8192, 'n'));
    });
}

struct Failing {
    const char* call;
    int after;  // calls of this name that go well before
};

/// The calls that can fail once the file is being written, the first write at a piece in the
/// middle.
class OverwriteFileFailing : public OverwriteFile, public testing::WithParamInterface<Failing> {};

TEST_P(OverwriteFileFailing, PutsTheOldFileBack) {
    for (const int error : {ENOSPC, EIO}) {
        for (const std::string& bytes : {shorter, longer}) {
            CallScript script;
            script.shorten(1000);
            script.fail(GetParam().call, error, 1, GetParam().after);
            expectRefused(overwriteFile(file, bytes), wordFor(error));
            EXPECT_EQ(contents(file), old);
            EXPECT_THAT(folder.names(), ElementsAre("file"));
            EXPECT_EQ(script.calls().back(), "close");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryStep, OverwriteFileFailing,
                         testing::Values(Failing{"write", 3}, Failing{"ftruncate", 0},
                                         Failing{"fsync", 0}, Failing{"read", 8},
                                         Failing{"close", 0}),
                         [](const auto& step) { return std::string(step.param.call); });

TEST_F(OverwriteFile, SaysSoWhereTheOldFileCannotBePutBack) {
    const std::string damaged = ", and the old file could not be put back: it is damaged";
    CallScript script;
    script.shorten(1000);
    script.fail("write", ENOSPC, 1000, 3);
    expectRefused(overwriteFile(file, shorter), wordFor(ENOSPC) + damaged);
    script.fail("write", EIO, 1);
    script.fail("open", EACCES, 1, 1);
    expectRefused(overwriteFile(file, shorter), wordFor(EIO) + damaged);
}

TEST_F(OverwriteFile, NoticesWhenAnotherFileCameOutThanWasWritten) {
    // A disk that loses what it was told to cut off.
    CallScript script;
    script.pretend("ftruncate");
    expectRefused(overwriteFile(file, shorter), wordFor(EIO));
    EXPECT_EQ(contents(file), old);
}

TEST_F(OverwriteFile, TouchesNothingThatItCannotReadFirst) {
    {
        CallScript script;
        script.fail("read", EIO);
        expectRefused(overwriteFile(file, longer), wordFor(EIO));
    }
    EXPECT_EQ(contents(file), old);
    fs::permissions(file, fs::perms(0222));
    asOrdinaryUser([&] { expectRefused(overwriteFile(file, longer), wordFor(EACCES)); });
    fs::permissions(file, fs::perms(0644));
    EXPECT_EQ(contents(file), old);
}

TEST_F(OverwriteFile, DoesNotKeepAHugeFileInMemory) {
    fs::resize_file(file, std::uintmax_t{1} << 40);
    expectRefused(overwriteFile(file, shorter), wordFor(EFBIG));
    EXPECT_EQ(fs::file_size(file), std::uintmax_t{1} << 40);
}

TEST_F(OverwriteFile, NeverWaitsForAPipe) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
    inChildProcess([&] {
        ::alarm(20);
        expectRefused(overwriteFile(folder / "pipe", longer), wordFor(EINVAL));
    });
}

TEST_F(OverwriteFile, MakesAFileThatIsNotThere) {
    fs::remove(file);
    expectWritten(longer);
}

TEST_F(OverwriteFile, RemovesANewFileThatCannotBeWritten) {
    fs::remove(file);
    CallScript script;
    script.shorten(1000);
    script.fail("write", ENOSPC, 1, 3);
    expectRefused(overwriteFile(file, longer), wordFor(ENOSPC));
    EXPECT_THAT(folder.names(), IsEmpty());
}

}  // namespace
}  // namespace files
