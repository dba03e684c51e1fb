#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "rescue/Work.h"
#include "rescue/readCopy.h"

namespace rescue {

/// So many copies of dead editors are offered, and kept.
inline constexpr std::size_t mostLeftovers = 10;

/// The work of an editor that is no longer there.
struct Leftover {
    std::string stem;  ///< by which it is taken
    std::chrono::system_clock::time_point written;
    Work work;
};

struct Findings {
    std::vector<Leftover> leftovers;   ///< the newest first
    std::vector<LeftAlone> leftAlone;  ///< what is no copy though it has the name of one
};

/// Looks into the folder and changes nothing. There may be no such folder.
[[nodiscard]] Findings lookInto(const std::filesystem::path& folder);

/// Removes the oldest copies of dead editors, so that `kept` stay, and what editors that were
/// killed have left half done.
void tidy(const std::filesystem::path& folder, std::size_t kept);

}  // namespace rescue
