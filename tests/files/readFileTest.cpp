#include "files/readFile.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>

#include "files/CallScript.h"
#include "files/ChildProcess.h"
#include "files/FileDescriptor.h"
#include "files/TemporaryFolder.h"

namespace files {
namespace {

namespace fs = std::filesystem;
using Status = ReadResult::Status;

constexpr std::size_t plenty = 1 << 20;

std::string manyBytes(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    }
    return bytes;
}

TEST(ReadFile, GivesEveryByteOfAFile) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
        write(folder / "file", manyBytes(size));
        const ReadResult result = readFile(folder / "file", plenty);
        EXPECT_EQ(result.status, Status::Read) << size;
        EXPECT_EQ(result.bytes, manyBytes(size));
    }
}

TEST(ReadFile, GivesNoMoreThanItsLimit) {
    const TemporaryFolder folder;
    write(folder / "file", manyBytes(200000));
    for (const std::size_t limit : {0U, 1U, 65536U, 100000U, 199999U, 200000U, 200001U}) {
        const ReadResult result = readFile(folder / "file", limit);
        EXPECT_EQ(result.status, Status::Read) << limit;
        EXPECT_EQ(result.bytes, manyBytes(200000).substr(0, limit));
    }
}

TEST(ReadFile, IsDoneWithAHugeFileAtOnce) {
    const TemporaryFolder folder;
    write(folder / "file", "beginning");
    fs::resize_file(folder / "file", std::uintmax_t{1} << 40);
    const auto start = std::chrono::steady_clock::now();
    const ReadResult result = readFile(folder / "file", 1000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(result.status, Status::Read);
    EXPECT_EQ(result.bytes, "beginning" + std::string(991, '\0'));
    EXPECT_LE(result.bytes.capacity(), 100000U);
}

TEST(ReadFile, LeavesTheFileAsItWas) {
    const TemporaryFolder folder;
    write(folder / "file", "contents");
    const auto before = fs::last_write_time(folder / "file");
    EXPECT_EQ(readFile(folder / "file", plenty).bytes, "contents");
    EXPECT_EQ(contents(folder / "file"), "contents");
    EXPECT_EQ(fs::last_write_time(folder / "file"), before);
}

TEST(ReadFile, FollowsSymbolicLinks) {
    const TemporaryFolder folder;
    write(folder / "file", "contents");
    fs::create_symlink("file", folder / "link");
    fs::create_symlink("link", folder / "link to link");
    EXPECT_EQ(readFile(folder / "link to link", plenty).bytes, "contents");
}

TEST(ReadFile, CannotOpenWhatIsNotThere) {
    const TemporaryFolder folder;
    write(folder / "file", "contents");
    fs::create_symlink("nothing", folder / "link to nothing");
    fs::create_symlink("loop", folder / "loop");
    EXPECT_EQ(readFile(folder / "nothing", plenty).status, Status::CannotOpen);
    EXPECT_EQ(readFile(folder / "link to nothing", plenty).status, Status::CannotOpen);
    EXPECT_EQ(readFile(folder / "loop", plenty).status, Status::CannotOpen);
    EXPECT_EQ(readFile(folder / "file" / "below", plenty).status, Status::CannotOpen);
    EXPECT_EQ(readFile(folder / std::string(300, 'x'), plenty).status, Status::CannotOpen);
    EXPECT_EQ(readFile("", plenty).status, Status::CannotOpen);
}

TEST(ReadFile, CannotOpenWhatItMayNotReadAndWrite) {
    const TemporaryFolder folder;
    write(folder / "both", "contents");
    write(folder / "only to read", "contents");
    write(folder / "only to write", "contents");
    write(folder / "neither", "contents");
    fs::permissions(folder / "both", fs::perms(0666));
    fs::permissions(folder / "only to read", fs::perms(0444));
    fs::permissions(folder / "only to write", fs::perms(0222));
    fs::permissions(folder / "neither", fs::perms(0));
    asOrdinaryUser([&] {
        EXPECT_EQ(readFile(folder / "both", plenty).status, Status::Read);
        EXPECT_EQ(readFile(folder / "only to read", plenty).status, Status::CannotOpen);
        EXPECT_EQ(readFile(folder / "only to write", plenty).status, Status::CannotOpen);
        EXPECT_EQ(readFile(folder / "neither", plenty).status, Status::CannotOpen);
    });
}

TEST(ReadFile, OpensWhatItMayOnlyReadWhereItIsToReadOnly) {
    const TemporaryFolder folder;
    write(folder / "only to read", "contents");
    write(folder / "only to write", "contents");
    fs::permissions(folder / "only to read", fs::perms(0444));
    fs::permissions(folder / "only to write", fs::perms(0222));
    asOrdinaryUser([&] {
        const ReadResult result = readFile(folder / "only to read", plenty, Access::Read);
        EXPECT_EQ(result.status, Status::Read);
        EXPECT_EQ(result.bytes, "contents");
        EXPECT_EQ(readFile(folder / "only to write", plenty, Access::Read).status,
                  Status::CannotOpen);
    });
}

TEST(ReadFile, TellsTheFilesSizeHoweverLittleOfItIsRead) {
    const TemporaryFolder folder;
    write(folder / "file", manyBytes(5000));
    EXPECT_EQ(readFile(folder / "file", 10).size, 5000U);
    EXPECT_EQ(readFile(folder / "file", plenty).size, 5000U);
    fs::resize_file(folder / "file", (std::uintmax_t{1} << 32) + 1);
    EXPECT_EQ(readFile(folder / "file", 10, Access::Read).size, (std::uintmax_t{1} << 32) + 1);
    EXPECT_EQ(readFile(folder / "nothing", 10).size, 0U);
    EXPECT_EQ(readFile(folder.path(), 10).size, 0U);
}

TEST(ReadFile, CannotOpenAFileOfAReadOnlyFileSystem) {
    const TemporaryFolder folder;
    withFileSystem(folder.path(), "size=64k", [&] {
        write(folder / "file", "contents");
        EXPECT_EQ(readFile(folder / "file", plenty).status, Status::Read);
        makeReadOnly(folder.path());
        EXPECT_EQ(readFile(folder / "file", plenty).status, Status::CannotOpen);
    });
}

TEST(ReadFile, CannotOpenAFolderForWriting) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    fs::create_directory_symlink("folder", folder / "link");
    for (const char* const name : {"folder", "link"}) {
        EXPECT_EQ(readFile(folder / name, plenty).status, Status::CannotOpen);
        EXPECT_EQ(readFile(folder / name, plenty, Access::Read).status, Status::NotRegular);
    }
}

TEST(ReadFile, NeverWaitsForAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
    fs::create_symlink("pipe", folder / "link");
    inChildProcess([&] {
        ::alarm(20);  // waiting would be for ever
        EXPECT_EQ(readFile(folder / "pipe", plenty).status, Status::NotRegular);
        EXPECT_EQ(readFile(folder / "link", plenty).status, Status::NotRegular);
    });
}

TEST(ReadFile, OpensNeitherAPipeNorADevice) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
    const CallScript script;
    EXPECT_EQ(readFile(folder / "pipe", plenty).status, Status::NotRegular);
    EXPECT_EQ(readFile("/dev/zero", plenty).status, Status::NotRegular);
    EXPECT_THAT(script.calls(), testing::IsEmpty());
}

TEST(ReadFile, CannotOpenAPipeThatItMayNotReadAndWrite) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0666), 0);
    fs::permissions(folder / "pipe", fs::perms(0444));
    asOrdinaryUser([&] {
        EXPECT_EQ(readFile(folder / "pipe", plenty).status, Status::CannotOpen);
        EXPECT_EQ(readFile(folder / "pipe", plenty, Access::Read).status, Status::NotRegular);
    });
}

TEST(ReadFile, TellsThatADeviceIsNoFile) {
    EXPECT_EQ(readFile("/dev/zero", plenty).status, Status::NotRegular);
    EXPECT_EQ(readFile("/dev/null", plenty).status, Status::NotRegular);
}

TEST(ReadFile, CannotOpenASocket) {
    const TemporaryFolder folder;
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder / "socket";
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const void* generic = &address;
    ASSERT_EQ(::bind(socket.get(), static_cast<const sockaddr*>(generic), sizeof address), 0);
    EXPECT_EQ(readFile(path, plenty).status, Status::CannotOpen);
    EXPECT_EQ(readFile(path, plenty, Access::Read).status, Status::CannotOpen);
}

TEST(ReadFile, GoesOnAfterShortAndInterruptedReads) {
    const TemporaryFolder folder;
    write(folder / "file", manyBytes(5000));
    CallScript script;
    script.shorten(7);
    script.fail("read", EINTR, 3);
    const ReadResult result = readFile(folder / "file", 4000);
    EXPECT_EQ(result.status, Status::Read);
    EXPECT_EQ(result.bytes, manyBytes(5000).substr(0, 4000));
}

TEST(ReadFile, TellsThatReadingFailed) {
    const TemporaryFolder folder;
    write(folder / "file", "contents");
    CallScript script;
    script.fail("read", EIO);
    EXPECT_EQ(readFile(folder / "file", plenty).status, Status::Failed);
    EXPECT_EQ(script.calls().back(), "close");
}

TEST(FileDescriptor, ClosesWhatItHoldsOnce) {
    const int opened = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    CallScript script;
    {
        FileDescriptor first(opened);
        FileDescriptor second(std::move(first));
        FileDescriptor third(-1);
        third = std::move(second);
        EXPECT_TRUE(third.isOpen());
        EXPECT_EQ(third.get(), opened);
    }
    EXPECT_EQ(script.calls(), std::vector<std::string>{"close"});
    EXPECT_EQ(::fcntl(opened, F_GETFD), -1);
}

TEST(FileDescriptor, TellsThatClosingFailed) {
    FileDescriptor file(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    CallScript script;
    script.fail("close", EIO);
    EXPECT_FALSE(file.close());
    EXPECT_FALSE(file.isOpen());
}

}  // namespace
}  // namespace files
