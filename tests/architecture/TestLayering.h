#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Who may use whom under tests/. A test of a room may include what the room itself may, the room
/// and its tests, what all tests share (tests/support), and the test library.
namespace architecture {

/// A folder of tests/ that tests no room, and what it is made of.
struct TestFolder {
    std::string name;
    std::vector<std::string> uses;  ///< rooms and folders, apart from itself and tests/support
};

/// What the tests of a room may use beyond the rule.
struct Exception {
    std::string room;
    std::string uses;  ///< a room or a folder of tests/
    std::string reason;
};

[[nodiscard]] const std::vector<TestFolder>& testFolders();
[[nodiscard]] const std::vector<Exception>& exceptions();

/// The #include lines under `tests` that break the rule, each as "file:line: what is wrong".
[[nodiscard]] std::vector<std::string> testOffences(const std::filesystem::path& tests);

/// The exceptions that no #include line under `tests` needs: "midi: files".
[[nodiscard]] std::vector<std::string> exceptionsInVain(const std::filesystem::path& tests);

}  // namespace architecture
