#include "files/privateFolder.h"

#include <gtest/gtest.h>
#include <cerrno>

#include "files/ChildProcess.h"
#include "files/TemporaryFolder.h"

namespace files {
namespace {

namespace fs = std::filesystem;

TEST(PrivateFolder, IsMadeWithAllThatIsMissingAboveItForItsOwnerAlone) {
    const TemporaryFolder folder;
    const fs::path inner = folder / "one" / "two" / "three";
    EXPECT_TRUE(makePrivateFolder(inner));
    for (fs::path made = inner; made != folder.path(); made = made.parent_path()) {
        EXPECT_EQ(permissions(made), 0700U) << made;
    }
    EXPECT_EQ(permissions(folder.path()), 0755U);
    EXPECT_TRUE(makePrivateFolder(inner));
}

TEST(PrivateFolder, ThatIsThereStaysAsItIs) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "there");
    fs::permissions(folder / "there", fs::perms(0755));
    fs::create_directory_symlink("there", folder / "link");
    EXPECT_TRUE(makePrivateFolder(folder / "there"));
    EXPECT_TRUE(makePrivateFolder(folder / "link"));
    EXPECT_EQ(permissions(folder / "there"), 0755U);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
}

TEST(PrivateFolder, IsNotMadeWhereAFileOrALinkToNothingIs) {
    const TemporaryFolder folder;
    write(folder / "file", "");
    fs::create_symlink("nothing", folder / "link");
    EXPECT_FALSE(makePrivateFolder(folder / "file"));
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_FALSE(makePrivateFolder(folder / "file" / "inner"));
    EXPECT_EQ(errno, ENOTDIR);
    EXPECT_FALSE(makePrivateFolder(folder / "link"));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"file", "link"}));
}

TEST(PrivateFolder, LeavesTheReasonWhereNothingMayBeMade) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "closed");
    fs::permissions(folder / "closed", fs::perms(0500));
    asOrdinaryUser([&] {
        EXPECT_FALSE(makePrivateFolder(folder / "closed" / "inner"));
        EXPECT_EQ(errno, EACCES);
    });
}

}  // namespace
}  // namespace files
