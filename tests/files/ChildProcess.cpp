#include "files/ChildProcess.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <sstream>
#include <system_error>

#include "files/FileDescriptor.h"
#include "files/TemporaryFolder.h"

namespace files {
namespace {

constexpr unsigned nobody = 65534;

std::string reason(const std::string& what) {
    return what + ": " + std::generic_category().message(errno);
}

const testing::TestResult& result() {
    return *testing::UnitTest::GetInstance()->current_test_info()->result();
}

/// A part of a test's result on its way to the parent: the kind, then file, line and message, with
/// zero bytes between and after them.
std::string packed(const testing::TestPartResult& part) {
    std::string text(1, part.skipped() ? 's' : 'f');
    text += part.file_name() != nullptr ? part.file_name() : "";
    text += '\0' + std::to_string(part.line_number()) + '\0' + part.message() + '\0';
    return text;
}

[[noreturn]] void beChild(const FileDescriptor& report, const std::function<void()>& body) {
    const int before = result().total_part_count();
    body();
    for (int i = before; i < result().total_part_count(); ++i) {
        const testing::TestPartResult& part = result().GetTestPartResult(i);
        if (part.failed() || part.skipped()) {
            const std::string text = packed(part);
            if (::write(report.get(), text.data(), text.size()) < 0) {
                ::_exit(1);
            }
        }
    }
    std::fflush(nullptr);
    ::_exit(0);
}

std::string everythingFrom(const FileDescriptor& file) {
    std::string text;
    std::array<char, 4096> part{};
    for (ssize_t count = 1; count > 0;) {
        count = ::read(file.get(), part.data(), part.size());
        text.append(part.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return text;
}

/// Makes the child's results the calling test's own.
void takeOver(const std::string& report) {
    std::istringstream stream(report);
    std::string file;
    std::string line;
    std::string message;
    while (std::getline(stream, file, '\0') && std::getline(stream, line, '\0') &&
           std::getline(stream, message, '\0')) {
        if (file.starts_with('s')) {
            GTEST_SKIP() << message;
        }
        ADD_FAILURE_AT(file.c_str() + 1, std::stoi(line)) << message;
    }
}

/// Gives this process mounts of its own. Needs root, or a system that lets every user be root
/// among its own.
bool haveOwnMounts() {
    const auto user = ::geteuid();
    const auto group = ::getegid();
    if (::unshare(CLONE_NEWNS) != 0) {
        if (errno != EPERM || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        write("/proc/self/setgroups", "deny");
        write("/proc/self/uid_map", "0 " + std::to_string(user) + " 1");
        write("/proc/self/gid_map", "0 " + std::to_string(group) + " 1");
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

}  // namespace

void inChildProcess(const std::function<void()>& body) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe2(ends.data(), O_CLOEXEC), 0) << reason("pipe2");
    const FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);
    std::fflush(nullptr);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0) << reason("fork");
    if (child == 0) {
        beChild(writeEnd, body);
    }
    ASSERT_TRUE(writeEnd.close());
    const std::string report = everythingFrom(readEnd);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child) << reason("waitpid");
    EXPECT_EQ(status, 0) << "the child process came to a bad end";
    takeOver(report);
}

void asOrdinaryUser(const std::function<void()>& body) {
    inChildProcess([&] {
        if (::geteuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setresgid(nobody, nobody, nobody) != 0 ||
             ::setresuid(nobody, nobody, nobody) != 0)) {
            GTEST_SKIP() << reason("root cannot become an ordinary user here");
        }
        body();
    });
}

void withFileSystem(const std::filesystem::path& folder, const std::string& options,
                    const std::function<void()>& body) {
    inChildProcess([&] {
        if (!haveOwnMounts()) {
            GTEST_SKIP() << reason("this user may have no mounts of its own here");
        }
        if (::mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) != 0) {
            GTEST_SKIP() << reason("this user may mount no file system in memory here");
        }
        body();
    });
}

void makeReadOnly(const std::filesystem::path& folder) {
    ASSERT_EQ(::mount(nullptr, folder.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0)
        << reason("mount");
}

void limitFileSize(std::size_t bytes) {
    ASSERT_NE(std::signal(SIGXFSZ, SIG_IGN), SIG_ERR);
    const rlimit limit{bytes, bytes};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0) << reason("setrlimit");
}

}  // namespace files
