#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): ptsname_r is not in the C++ header
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "files/FileDescriptor.h"
#include "files/TemporaryFolder.h"
#include "files/refusals.h"
#include "files/replaceFile.h"

// A replacement that fails says why, leaves the old file as it was and nothing beside it.

namespace files {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

void expectRefused(const ReplaceResult& result, int error) {
    expectRefused(result, wordFor(error));
}

constexpr const char* noFile = "It is not a file but a device, a pipe or a socket";

TEST(ReplaceFileFailure, TheTargetIsAFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "target");
    fs::create_directory_symlink("target", folder / "link");
    expectRefused(replaceFile(folder / "target", "new"), EISDIR);
    expectRefused(replaceFile(folder / "link", "new"), EISDIR);
    EXPECT_THAT(folder.names(), ElementsAre("link", "target"));
    EXPECT_TRUE(fs::is_directory(folder / "target"));
}

TEST(ReplaceFileFailure, TheTargetIsAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
    inChildProcess([&] {
        ::alarm(20);  // waiting for someone to read it would be for ever
        expectRefused(replaceFile(folder / "pipe", "new"), noFile);
    });
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_THAT(folder.names(), ElementsAre("pipe"));
}

TEST(ReplaceFileFailure, TheTargetIsADevice) {
    // A terminal, because not even root can put a file in its place should this ever go wrong.
    const FileDescriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    std::array<char, 100> name{};
    if (!terminal.isOpen() || ::ptsname_r(terminal.get(), name.data(), name.size()) != 0) {
        GTEST_SKIP() << "there are no terminals here: " << wordFor(errno);
    }
    ASSERT_TRUE(fs::is_character_file(name.data()));
    expectRefused(replaceFile(name.data(), "new"), noFile);
    EXPECT_TRUE(fs::is_character_file(name.data()));
}

TEST(ReplaceFileFailure, TheFolderIsGone) {
    const TemporaryFolder folder;
    expectRefused(replaceFile(folder / "gone" / "file", "new"), ENOENT);
    fs::create_symlink("gone/file", folder / "link");
    expectRefused(replaceFile(folder / "link", "new"), ENOENT);
    EXPECT_THAT(folder.names(), ElementsAre("link"));
}

TEST(ReplaceFileFailure, ThereIsNoName) {
    const TemporaryFolder folder;
    inChildProcess([&] {
        fs::current_path(folder.path());
        expectRefused(replaceFile("", "new"), ENOENT);
    });
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(ReplaceFileFailure, TheFolderIsAFile) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    expectRefused(replaceFile(folder / "file" / "below", "new"), ENOTDIR);
    EXPECT_EQ(contents(folder / "file"), "old");
}

TEST(ReplaceFileFailure, TheNameIsTooLong) {
    const TemporaryFolder folder;
    expectRefused(replaceFile(folder / std::string(256, 'x'), "new"), ENAMETOOLONG);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(ReplaceFileFailure, LinksGoRoundInACircle) {
    const TemporaryFolder folder;
    fs::create_symlink("second", folder / "first");
    fs::create_symlink("first", folder / "second");
    expectRefused(replaceFile(folder / "first", "new"), ELOOP);
    EXPECT_THAT(folder.names(), ElementsAre("first", "second"));
}

TEST(ReplaceFileFailure, TheFolderIsProtected) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    fs::permissions(folder / "file", fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(0555));
    asOrdinaryUser([&] { expectRefused(replaceFile(folder / "other", "new"), EACCES); });
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(contents(folder / "file"), "old");
    EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST(ReplaceFileFailure, TheFileIsProtected) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    fs::permissions(folder / "file", fs::perms(0444));
    fs::permissions(folder.path(), fs::perms(0777));
    asOrdinaryUser([&] { expectRefused(replaceFile(folder / "file", "new"), EACCES); });
    EXPECT_EQ(contents(folder / "file"), "old");
    EXPECT_EQ(permissions(folder / "file"), 0444U);
    EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST(ReplaceFileFailure, ThePathLeadsThroughAFolderThatIsClosed) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "closed");
    fs::permissions(folder / "closed", fs::perms(0700));
    if (::geteuid() != 0) {
        fs::permissions(folder / "closed", fs::perms(0));
    }
    asOrdinaryUser([&] { expectRefused(replaceFile(folder / "closed" / "file", "new"), EACCES); });
    fs::permissions(folder / "closed", fs::perms(0700));
    EXPECT_THAT(namesIn(folder / "closed"), IsEmpty());
}

TEST(ReplaceFileFailure, TheFileSystemIsFull) {
    const TemporaryFolder folder;
    withFileSystem(folder.path(), "size=16k", [&] {
        write(folder / "file", "old");
        // Two of four pages are left: a file that needs three stops in the middle.
        constexpr std::size_t page = 4096;
        write(folder / "filler", std::string(page, 'x'));
        expectRefused(replaceFile(folder / "file", std::string(3 * page, 'n')), ENOSPC);
        EXPECT_EQ(contents(folder / "file"), "old");
        EXPECT_THAT(folder.names(), ElementsAre("file", "filler"));

        // Its space is free again.
        EXPECT_TRUE(replaceFile(folder / "file", std::string(2 * page, 'n')).replaced);
    });
}

TEST(ReplaceFileFailure, AFullDiskIsNoReasonToWriteOverTheOldFile) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    for (const char* const step : {"mkostemp", "write", "fsync", "close", "rename"}) {
        for (const int error : {ENOSPC, EDQUOT, EFBIG, EIO}) {
            CallScript script;
            script.fail(step, error);
            expectRefused(replaceFile(folder / "file", "new"), error);
            EXPECT_EQ(contents(folder / "file"), "old") << step;
        }
    }
}

TEST(ReplaceFileFailure, TheFileSystemTakesNoMoreFiles) {
    const TemporaryFolder folder;
    withFileSystem(folder.path(), "size=64k,nr_inodes=2", [&] {
        write(folder / "file", "old");
        expectRefused(replaceFile(folder / "file", "new"), ENOSPC);
        EXPECT_EQ(contents(folder / "file"), "old");
        EXPECT_THAT(folder.names(), ElementsAre("file"));
    });
}

TEST(ReplaceFileFailure, TheFileSystemIsReadOnly) {
    const TemporaryFolder folder;
    withFileSystem(folder.path(), "size=64k", [&] {
        write(folder / "file", "old");
        makeReadOnly(folder.path());
        expectRefused(replaceFile(folder / "file", "new"), EROFS);
        expectRefused(replaceFile(folder / "other", "new"), EROFS);
        EXPECT_EQ(contents(folder / "file"), "old");
        EXPECT_THAT(folder.names(), ElementsAre("file"));
    });
}

TEST(ReplaceFileFailure, TheFileMayNotGrowSoLarge) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    inChildProcess([&] {
        limitFileSize(1000);
        expectRefused(replaceFile(folder / "file", std::string(1001, 'n')), EFBIG);
        EXPECT_EQ(contents(folder / "file"), "old");
        EXPECT_THAT(folder.names(), ElementsAre("file"));
        EXPECT_TRUE(replaceFile(folder / "file", std::string(1000, 'n')).replaced);
    });
}

/// The steps of a replacement, each of which can fail.
class ReplaceFileFailureOf : public testing::TestWithParam<const char*> {};

TEST_P(ReplaceFileFailureOf, LeavesTheOldFileAndNothingBeside) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    fs::permissions(folder / "file", fs::perms(0640));
    CallScript script;
    script.fail(GetParam(), EDQUOT);
    expectRefused(replaceFile(folder / "file", "new"), EDQUOT);
    EXPECT_EQ(contents(folder / "file"), "old");
    EXPECT_EQ(permissions(folder / "file"), 0640U);
    EXPECT_THAT(folder.names(), ElementsAre("file"));
    const bool wasOpen = std::string(GetParam()) == "write" || std::string(GetParam()) == "fsync" ||
                         std::string(GetParam()) == "close";
    EXPECT_EQ(script.calls().back(), wasOpen ? "close" : GetParam());
}

INSTANTIATE_TEST_SUITE_P(EveryStep, ReplaceFileFailureOf,
                         testing::Values("mkostemp", "write", "fsync", "close", "rename"),
                         [](const auto& step) { return std::string(step.param); });

TEST(ReplaceFileFailure, OfGivingAwayTheNewFileIsNone) {
    const TemporaryFolder folder;
    for (const int error : {EPERM, EINVAL, ENOSYS}) {
        write(folder / "file", "old");
        fs::permissions(folder / "file", fs::perms(0640));
        CallScript script;
        script.fail("fchown", error, 2);
        EXPECT_TRUE(replaceFile(folder / "file", "new").replaced) << wordFor(error);
        EXPECT_EQ(contents(folder / "file"), "new");
        EXPECT_EQ(permissions(folder / "file"), 0640U);
    }
}

TEST(ReplacePrivateFileFailure, WhateverFailsLeavesTheOldFileAndNothingBesideIt) {
    for (const char* call : {"mkostemp", "write", "fsync", "close", "rename"}) {
        for (const int error : {ENOSPC, EACCES, EPERM, EROFS, EIO}) {
            const TemporaryFolder folder;
            write(folder / "file", "old");
            CallScript script;
            script.fail(call, error);
            expectRefused(replacePrivateFile(folder / "file", "new"), error);
            EXPECT_EQ(contents(folder / "file"), "old") << call;
            EXPECT_THAT(folder.names(), ElementsAre("file")) << call;
        }
    }
}

}  // namespace
}  // namespace files
