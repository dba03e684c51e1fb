#pragma once

// Files, with what can go wrong with them as values. Standard library and operating system only;
// what is in the files is not known here.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace files {

struct ReadResult {
    enum class Status {
        Read,        ///< `bytes` holds the file's beginning
        CannotOpen,  ///< no such file, or it cannot be opened for what it is wanted for
        NotRegular,  ///< it could be opened, and is a pipe or a device, or a folder to be read
        Failed       ///< it was opened, and reading failed
    };
    Status status = Status::Failed;
    std::string bytes;
    /// The size the file had when it was opened; `bytes` may hold more or less where it changes
    /// meanwhile. Known unless it was not opened or is no regular file.
    std::uintmax_t size = 0;
};

/// What a file is opened for. Either way it is not changed.
enum class Access {
    ReadAndWrite,  ///< a file that may only be read counts as not to be opened
    Read
};

/// Reads at most `limit` bytes from the beginning of a regular file. Anything else is not opened,
/// for that alone can wait for ever or set a device going; told is whether it could be. A folder
/// cannot be opened for writing, a socket not at all.
[[nodiscard]] ReadResult readFile(const std::filesystem::path& path, std::size_t limit,
                                  Access access = Access::ReadAndWrite);

}  // namespace files
