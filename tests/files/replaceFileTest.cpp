#include "files/replaceFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <tuple>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "files/FileDescriptor.h"
#include "files/TemporaryFolder.h"

// Files that are replaced. What happens where that fails is in replaceFileFailuresTest.cpp.

namespace files {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

void expectReplaced(const ReplaceResult& result) {
    EXPECT_TRUE(result.replaced);
    EXPECT_TRUE(result.inOneStep);
    EXPECT_EQ(result.reason, "");
}

unsigned currentMask() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return mask;
}

void expectWrittenOver(const ReplaceResult& result) {
    EXPECT_TRUE(result.replaced);
    EXPECT_FALSE(result.inOneStep);
    EXPECT_EQ(result.reason, "");
}

TEST(ReplaceFile, WritesANewFile) {
    const TemporaryFolder folder;
    const std::string bytes = std::string("line\n\0\xFFmore", 11);
    expectReplaced(replaceFile(folder / "file", bytes));
    EXPECT_EQ(contents(folder / "file"), bytes);
    EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST(ReplaceFile, GivesAFileNewContents) {
    const TemporaryFolder folder;
    write(folder / "file", "something longer than what comes");
    write(folder / "other", "other");
    expectReplaced(replaceFile(folder / "file", "new"));
    EXPECT_EQ(contents(folder / "file"), "new");
    expectReplaced(replaceFile(folder / "file", ""));
    EXPECT_EQ(contents(folder / "file"), "");
    EXPECT_EQ(contents(folder / "other"), "other");
    EXPECT_THAT(folder.names(), ElementsAre("file", "other"));
}

TEST(ReplaceFile, PutsTheNewFileInPlaceInOneStep) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    const FileDescriptor reader(::open((folder / "file").c_str(), O_RDONLY | O_CLOEXEC));
    expectReplaced(replaceFile(folder / "file", "new contents"));
    // Who has the old file open still reads it: not a byte of it was written over.
    std::array<char, 20> bytes{};
    ASSERT_EQ(::read(reader.get(), bytes.data(), bytes.size()), 3);
    EXPECT_STREQ(bytes.data(), "old");
}

TEST(ReplaceFile, FlushesToDiskBeforeTheFileIsPutInPlaceAndTheFolderAfterwards) {
    const TemporaryFolder folder;
    CallScript script;
    expectReplaced(replaceFile(folder / "file", "contents"));
    EXPECT_THAT(script.calls(), ElementsAre("mkostemp", "fchmod", "write", "fsync", "close",
                                            "rename", "open", "fsync", "close"));
}

TEST(ReplaceFile, GoesOnAfterShortAndInterruptedWrites) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 1000; ++i) {
        bytes += std::to_string(i);
    }
    CallScript script;
    script.shorten(7);
    script.fail("write", EINTR, 3);
    script.fail("fsync", EINTR, 2);
    expectReplaced(replaceFile(folder / "file", bytes));
    EXPECT_EQ(contents(folder / "file"), bytes);
}

TEST(ReplaceFile, IsContentWithAFolderThatCannotBeFlushed) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0333));
    asOrdinaryUser([&] { expectReplaced(replaceFile(folder / "file", "contents")); });
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(contents(folder / "file"), "contents");
}

TEST(ReplaceFile, GivesANewFileThePermissionsOfAnyNewFile) {
    const TemporaryFolder folder;
    inChildProcess([&] {
        for (const mode_t mask : {0022U, 0077U, 0002U, 0000U}) {
            ::umask(mask);
            expectReplaced(replaceFile(folder / std::to_string(mask), "contents"));
            EXPECT_EQ(permissions(folder / std::to_string(mask)), 0666U & ~mask);
            EXPECT_EQ(::umask(mask), mask) << "the mask stays as it was";
        }
    });
}

TEST(ReplaceFile, KeepsTheFilesPermissions) {
    const TemporaryFolder folder;
    inChildProcess([&] {
        ::umask(0077);
        for (const unsigned mode : {0600U, 0644U, 0666U, 0640U, 0755U, 0200U}) {
            write(folder / "file", "old");
            fs::permissions(folder / "file", fs::perms(mode));
            expectReplaced(replaceFile(folder / "file", "new"));
            EXPECT_EQ(permissions(folder / "file"), mode);
        }
    });
}

TEST(ReplaceFile, LeavesAnothersFileWithItsOwner) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can give files away";
    }
    const TemporaryFolder folder;
    write(folder / "file", "old");
    if (::chown((folder / "file").c_str(), 12345, 23456) != 0) {
        GTEST_SKIP() << "root may not give files away here";
    }
    fs::permissions(folder / "file", fs::perms(0640));
    expectReplaced(replaceFile(folder / "file", "new"));
    struct stat status {};
    ASSERT_EQ(::stat((folder / "file").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 12345U);
    EXPECT_EQ(status.st_gid, 23456U);
    EXPECT_EQ(permissions(folder / "file"), 0640U);
    EXPECT_EQ(contents(folder / "file"), "new");
}

TEST(ReplaceFile, TakesOverAFileThatAnyoneMayWrite) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    fs::permissions(folder / "file", fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(0777));
    asOrdinaryUser([&] { expectReplaced(replaceFile(folder / "file", "new")); });
    EXPECT_EQ(contents(folder / "file"), "new");
    EXPECT_EQ(permissions(folder / "file"), 0666U);
}

TEST(ReplaceFile, ReplacesWhatASymbolicLinkPointsTo) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "elsewhere");
    write(folder / "elsewhere" / "file", "old");
    fs::permissions(folder / "elsewhere" / "file", fs::perms(0640));
    fs::create_symlink("elsewhere/file", folder / "relative");
    fs::create_symlink(folder / "elsewhere" / "file", folder / "absolute");
    fs::create_symlink("../relative", folder / "elsewhere" / "there and back");
    for (const fs::path& link :
         {fs::path("relative"), fs::path("absolute"), fs::path("elsewhere/there and back")}) {
        const fs::path pointsTo = fs::read_symlink(folder / link);
        expectReplaced(replaceFile(folder / link, "through " + link.string()));
        EXPECT_EQ(fs::read_symlink(folder / link), pointsTo) << link;
        EXPECT_FALSE(fs::is_symlink(folder / "elsewhere" / "file"));
        EXPECT_EQ(contents(folder / "elsewhere" / "file"), "through " + link.string());
        EXPECT_EQ(permissions(folder / "elsewhere" / "file"), 0640U);
    }
    EXPECT_THAT(folder.names(), ElementsAre("absolute", "elsewhere", "relative"));
    EXPECT_THAT(namesIn(folder / "elsewhere"), ElementsAre("file", "there and back"));
}

TEST(ReplaceFile, MakesTheFileThatALinkPointsToInVain) {
    const TemporaryFolder folder;
    fs::create_symlink("file", folder / "link");
    expectReplaced(replaceFile(folder / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contents(folder / "file"), "new");
}

TEST(ReplaceFile, FindsAFileBelowALinkedFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    fs::create_directory_symlink("folder", folder / "link");
    expectReplaced(replaceFile(folder / "link" / "file", "new"));
    EXPECT_EQ(contents(folder / "folder" / "file"), "new");
}

TEST(ReplaceFile, TakesANameWithoutAFolder) {
    const TemporaryFolder folder;
    inChildProcess([&] {
        fs::current_path(folder.path());
        expectReplaced(replaceFile("file", "new"));
        fs::create_symlink("file", "link");
        expectReplaced(replaceFile("link", "newer"));
    });
    EXPECT_EQ(contents(folder / "file"), "newer");
    EXPECT_THAT(folder.names(), ElementsAre("file", "link"));
}

TEST(ReplaceFile, TakesANameAsLongAsThereAre) {
    const TemporaryFolder folder;
    const std::string name(255, 'x');
    expectReplaced(replaceFile(folder / name, "new"));
    expectReplaced(replaceFile(folder / name, "newer"));
    EXPECT_EQ(contents(folder / name), "newer");
}

TEST(ReplaceFile, GoesWithoutPermissionsAndOwnersWhereAMountRefusesThem) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    for (const char* const name : {"file", "new file"}) {
        CallScript script;
        script.fail("fchmod", EPERM);
        script.fail("fchown", EPERM, 2);
        expectReplaced(replaceFile(folder / name, "new"));
        EXPECT_EQ(contents(folder / name), "new");
    }
    EXPECT_THAT(folder.names(), ElementsAre("file", "new file"));
}

TEST(ReplaceFile, KeepsEveryNameOfAFileThatHasSeveral) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "elsewhere");
    write(folder / "file", "old");
    fs::permissions(folder / "file", fs::perms(0640));
    fs::create_hard_link(folder / "file", folder / "elsewhere" / "name");
    fs::create_symlink("file", folder / "link");
    expectWrittenOver(replaceFile(folder / "file", "new"));
    EXPECT_EQ(contents(folder / "elsewhere" / "name"), "new");
    expectWrittenOver(replaceFile(folder / "link", "newer"));
    EXPECT_EQ(contents(folder / "elsewhere" / "name"), "newer");
    EXPECT_TRUE(fs::equivalent(folder / "file", folder / "elsewhere" / "name"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(permissions(folder / "file"), 0640U);
    EXPECT_THAT(folder.names(), ElementsAre("elsewhere", "file", "link"));
}

TEST(ReplaceFile, WritesOverAFileInAFolderThatTakesNoNewOnes) {
    const TemporaryFolder folder;
    write(folder / "file", "something longer than what comes");
    fs::permissions(folder / "file", fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(0555));
    asOrdinaryUser([&] { expectWrittenOver(replaceFile(folder / "file", "new")); });
    fs::permissions(folder.path(), fs::perms(0755));
    EXPECT_EQ(contents(folder / "file"), "new");
    EXPECT_EQ(permissions(folder / "file"), 0666U);
    EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST(ReplaceFile, WritesOverAnothersFileInASharedFolder) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can make a folder of another's";
    }
    const TemporaryFolder folder;
    write(folder / "file", "old");
    fs::permissions(folder / "file", fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(01777));  // as /tmp is
    asOrdinaryUser([&] { expectWrittenOver(replaceFile(folder / "file", "new")); });
    EXPECT_EQ(contents(folder / "file"), "new");
    EXPECT_THAT(folder.names(), ElementsAre("file"));
}

TEST(ReplaceFile, WritesOverAFileThatIsAMount) {
    const TemporaryFolder folder;
    withFileSystem(folder.path(), "size=64k", [&] {
        write(folder / "real", "old");
        write(folder / "file", "below");
        if (::mount((folder / "real").c_str(), (folder / "file").c_str(), nullptr, MS_BIND,
                    nullptr) != 0) {
            GTEST_SKIP() << "this user may mount no file here";
        }
        expectWrittenOver(replaceFile(folder / "file", "new"));
        EXPECT_EQ(contents(folder / "real"), "new");
        EXPECT_THAT(folder.names(), ElementsAre("file", "real"));
    });
}

/// What a system may say that will not have a file replaced.
class ReplaceFileRefused : public testing::TestWithParam<std::tuple<const char*, int>> {};

TEST_P(ReplaceFileRefused, WritesTheFileItself) {
    const TemporaryFolder folder;
    write(folder / "file", "old");
    const auto& [call, error] = GetParam();
    for (const char* const name : {"file", "new file"}) {
        CallScript script;
        script.fail(call, error);
        expectWrittenOver(replaceFile(folder / name, "new"));
        EXPECT_EQ(contents(folder / name), "new");
    }
    EXPECT_EQ(permissions(folder / "new file"), 0666U & ~currentMask());
    EXPECT_THAT(folder.names(), ElementsAre("file", "new file"));
}

INSTANTIATE_TEST_SUITE_P(EitherStep, ReplaceFileRefused,
                         testing::Combine(testing::Values("mkostemp", "rename"),
                                          testing::Values(EACCES, EPERM, EROFS, EBUSY, EXDEV,
                                                          EINVAL, ENOSYS, EOPNOTSUPP)));

TEST(ReplacePrivateFile, IsItsOwnersAloneWhateverWasThere) {
    const TemporaryFolder folder;
    const mode_t mask = ::umask(0);
    expectReplaced(replacePrivateFile(folder / "new", "private"));
    write(folder / "old", "public");
    fs::permissions(folder / "old", fs::perms(0666));
    expectReplaced(replacePrivateFile(folder / "old", "private"));
    ::umask(mask);
    for (const char* name : {"new", "old"}) {
        EXPECT_EQ(permissions(folder / name), 0600U) << name;
        EXPECT_EQ(contents(folder / name), "private") << name;
    }
    EXPECT_THAT(folder.names(), ElementsAre("new", "old"));
}

TEST(ReplacePrivateFile, TakesThePlaceOfALinkAndOfOneOfSeveralNames) {
    const TemporaryFolder folder;
    write(folder / "elsewhere", "untouched");
    fs::create_symlink("elsewhere", folder / "link");
    fs::create_hard_link(folder / "elsewhere", folder / "name");
    expectReplaced(replacePrivateFile(folder / "link", "private"));
    expectReplaced(replacePrivateFile(folder / "name", "private"));
    EXPECT_FALSE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contents(folder / "elsewhere"), "untouched");
    EXPECT_EQ(contents(folder / "name"), "private");
}

TEST(ReplacePrivateFile, IsFlushedToDiskBeforeItIsInPlace) {
    const TemporaryFolder folder;
    CallScript script;
    expectReplaced(replacePrivateFile(folder / "file", "contents"));
    EXPECT_THAT(script.calls(), ElementsAre("mkostemp", "write", "fsync", "close", "rename", "open",
                                            "fsync", "close"));
}

}  // namespace
}  // namespace files
