#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Who may use whom: the rooms of src/ and the arrows between them, which point down only. A room
/// is core unless it is named as one that knows the toolkit's windows: those of qt, and app.
namespace architecture {

struct Room {
    std::string name;
    std::vector<std::string> uses;      ///< the rooms below it, apart from itself
    std::vector<std::string> external;  ///< what it may include from outside, beside the standard
                                        ///< library: patterns of whole include targets
    bool core = true;
};

/// Every room of src/, from the ground floor up.
[[nodiscard]] const std::vector<Room>& rooms();

/// The room of that name, or null.
[[nodiscard]] const Room* findRoom(const std::string& name);

/// The room a file of src/ or tests/ belongs to: the innermost one whose folder it stands in, or
/// null.
[[nodiscard]] const Room* roomOf(const std::filesystem::path& file);

/// The #include lines under `src` that break the rules, each as "file:line: what is wrong". Empty
/// if the tree is in order.
[[nodiscard]] std::vector<std::string> layeringOffences(const std::filesystem::path& src);

/// The arrows of the table that no #include line under `src` needs: "midi: files".
[[nodiscard]] std::vector<std::string> unusedArrows(const std::filesystem::path& src);

/// The files under `src`, relative to it, that include the library behind the archive's byte
/// format.
[[nodiscard]] std::vector<std::filesystem::path> filesThatKnowTheArchive(
    const std::filesystem::path& src);

}  // namespace architecture
