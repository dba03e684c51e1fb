#pragma once

#include <filesystem>
#include <functional>
#include <string>

// What a test changes for its whole process (user, limits, mounts) it changes in a child of it:
//
//     TEST(Saving, SaysThatTheDiskIsFull) {
//         asOrdinaryUser([] { EXPECT_...; });
//     }
namespace files {

/// Runs `body` in a child process. What fails there, or is skipped there, counts for the test that
/// called; so does the child's death. The child's objects are not destroyed at its end.
void inChildProcess(const std::function<void()>& body);

/// The same as a user with no rights of its own, also where the tests run as root; skipped, with
/// the reason, where the system does not let it become one.
void asOrdinaryUser(const std::function<void()>& body);

/// The same with an empty file system in memory mounted on `folder`, seen by the child alone.
/// `options` are those of tmpfs, such as "size=16k". Skipped, with the reason, where the system
/// lets this user mount nothing.
void withFileSystem(const std::filesystem::path& folder, const std::string& options,
                    const std::function<void()>& body);

/// Inside withFileSystem: from now on nothing can be written to it.
void makeReadOnly(const std::filesystem::path& folder);

/// Inside a child: no file can grow beyond this many bytes, and an attempt is an error, not death.
void limitFileSize(std::size_t bytes);

}  // namespace files
