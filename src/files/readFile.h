#pragma once

// Files, with what can go wrong with them as values. Standard library and operating system only;
// what is in the files is not known here.

#include <cstddef>
#include <filesystem>
#include <string>

namespace files {

struct ReadResult {
    enum class Status {
        Read,        ///< `bytes` holds the file's beginning
        CannotOpen,  ///< no such file, or it may not be read and written
        NotRegular,  ///< a folder, a pipe, a device, a socket
        Failed       ///< it was opened, and reading failed
    };
    Status status = Status::Failed;
    std::string bytes;
};

/// Reads at most `limit` bytes from the beginning of a regular file. The file is opened for
/// updating, so one that may only be read counts as not to be opened; it is not changed. Never
/// waits for a pipe or a device.
[[nodiscard]] ReadResult readFile(const std::filesystem::path& path, std::size_t limit);

}  // namespace files
