#pragma once

#include <filesystem>
#include <optional>
#include <utility>

#include "files/FileDescriptor.h"

namespace files {

/// A lock on a file, which lasts as long as this object, and no longer than the process. Nothing
/// ever waits for one. What fails leaves the reason in `errno`: EWOULDBLOCK where somebody else has
/// the lock, this very process perhaps.
///
/// A file that others may remove can be locked after it has gone; `isInPlace` tells.
class FileLock {
public:
    enum class Kind {
        Shared,    ///< for any number of those who look
        Exclusive  ///< for one, and nobody who looks
    };

    /// Locks a regular file that is there.
    [[nodiscard]] static std::optional<FileLock> tryToLock(const std::filesystem::path& path,
                                                           Kind kind);
    /// Makes the file, for its owner alone, and has it; fails where something of this name is
    /// there, or where another was quicker to lock it.
    [[nodiscard]] static std::optional<FileLock> tryToMake(const std::filesystem::path& path);

    /// Whether the path still stands for the file that is locked.
    [[nodiscard]] bool isInPlace() const;

private:
    FileLock(std::filesystem::path path, FileDescriptor file)
        : path_(std::move(path)), file_(std::move(file)) {}

    [[nodiscard]] static std::optional<FileLock> lock(const std::filesystem::path& path, Kind kind,
                                                      int flags);

    std::filesystem::path path_;
    FileDescriptor file_;
};

}  // namespace files
