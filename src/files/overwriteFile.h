#pragma once

#include <filesystem>
#include <string_view>

#include "files/replaceFile.h"

namespace files {

/// Gives a file new contents by writing into the file itself, for where it cannot be replaced: it
/// keeps its owner, its permissions and all its names. A file that is not there yet is made.
///
/// What was in it is kept in memory. The space is asked for before anything is written, what was
/// written is read back, and where any of that fails the old contents are written back, and a new
/// file is removed. A process that is killed meanwhile, or a power cut, leaves the file damaged.
[[nodiscard]] ReplaceResult overwriteFile(const std::filesystem::path& file,
                                          std::string_view bytes);

}  // namespace files
