#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Reads the source tree as text. What it finds is judged in Layering.h; it knows no rule itself.
namespace architecture {

/// One #include line.
struct Include {
    std::filesystem::path file;  ///< the file it stands in, relative to the folder that was read
    int line = 0;                ///< counted from 1
    std::string target;          ///< what stands between the brackets or quotes
    bool angled = false;         ///< <target> as opposed to "target"
};

/// The files under `folder` whose name ends in one of `extensions` (".h"), sorted by name and
/// relative to `folder`. A folder that is not there has none.
[[nodiscard]] std::vector<std::filesystem::path> filesUnder(
    const std::filesystem::path& folder, const std::vector<std::string>& extensions);

/// Every #include line of the C++ files under `folder`.
[[nodiscard]] std::vector<Include> includesUnder(const std::filesystem::path& folder);

/// The lines of a text file.
[[nodiscard]] std::vector<std::string> linesOf(const std::filesystem::path& file);

}  // namespace architecture
