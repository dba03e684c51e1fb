#pragma once

#include <filesystem>

namespace files {

/// Sees to it that there is such a folder. What is missing of its path is made for its owner alone;
/// what is there stays as it is. What fails leaves the reason in `errno`.
[[nodiscard]] bool makePrivateFolder(const std::filesystem::path& path);

}  // namespace files
