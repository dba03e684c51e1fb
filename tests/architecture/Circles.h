#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace architecture {

/// The files under `folder` that need themselves by way of others: "room/Box" for Box.h and
/// Box.cpp, which count as one, where Box.cpp includes List.h and List.cpp includes Box.h. Sorted.
[[nodiscard]] std::vector<std::string> filesInCircles(const std::filesystem::path& folder);

}  // namespace architecture
