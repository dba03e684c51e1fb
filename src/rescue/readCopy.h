#pragma once

// Reads what may have become anything since it was written. Nothing is changed.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "rescue/Work.h"

namespace rescue {

/// Why a file is left alone.
enum class Obstacle {
    Damaged,
    TooLong,
    Folder,
    Link,
    NoFile,
    Unreadable,
    BeingWritten,
    Incomplete
};

struct LeftAlone {
    std::string name;
    Obstacle why = Obstacle::Damaged;

    bool operator==(const LeftAlone&) const = default;
};

struct WholeCopy {
    std::uint64_t number = 0;
    Work work;
};

/// The newest copy with this stem of which everything is there and can be read. `numbers` are those
/// it can have, the newest first. What stands in the way of a newer one is added to `leftAlone`; a
/// file that has just gone is none.
[[nodiscard]] std::optional<WholeCopy> newestWholeCopy(const std::filesystem::path& folder,
                                                       const std::string& stem,
                                                       const std::vector<std::uint64_t>& numbers,
                                                       std::vector<LeftAlone>& leftAlone);

}  // namespace rescue
