#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace architecture {

/// The names that a source file takes over from another namespace, "using testing::Each;" or
/// "namespace fs = std::filesystem;", and never uses: "room/FileTest.cpp: Each". The lint reads
/// several files as one, so it takes another file's use for one of this file.
[[nodiscard]] std::vector<std::string> namesTakenOverInVain(const std::filesystem::path& folder);

}  // namespace architecture
