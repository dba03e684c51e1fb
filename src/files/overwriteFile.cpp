#include "files/overwriteFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <optional>
#include <string>

#include "files/FileDescriptor.h"
#include "files/failed.h"

namespace files {
namespace {

namespace fs = std::filesystem;

/// More than that is not kept in memory, and so not written over.
constexpr std::size_t mostKept = std::size_t{64} << 20;

constexpr int flags = O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

FileDescriptor open(const fs::path& file, int otherFlags = 0) {
    return FileDescriptor(
        uninterrupted([&] { return ::open(file.c_str(), flags | otherFlags, 0666); }));
}

/// Everything in a file that is regular and not too large.
std::optional<std::string> contentsOf(const FileDescriptor& file) {
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) {
        return std::nullopt;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (!S_ISREG(status.st_mode) || size > mostKept) {
        errno = S_ISREG(status.st_mode) ? EFBIG : EINVAL;
        return std::nullopt;
    }
    std::string bytes(size + 1, '\0');  // one more, so that the end shows
    if (::lseek(file.get(), 0, SEEK_SET) != 0 || !file.readUpTo(bytes)) {
        return std::nullopt;
    }
    return bytes;
}

/// Asks for the space before anything is changed; false where there is none. A file system that
/// cannot say is taken at its word later.
bool reserve(const FileDescriptor& file, std::size_t size) {
    return size == 0 ||
           ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0 ||
           (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}

/// Whether these bytes and no others are in the file and on the disk.
bool writeAndCheck(FileDescriptor file, std::string_view bytes) {
    const auto size = static_cast<off_t>(bytes.size());
    if (::lseek(file.get(), 0, SEEK_SET) != 0 || !file.writeAll(bytes) ||
        uninterrupted([&] { return ::ftruncate(file.get(), size); }) != 0 ||
        uninterrupted([&] { return ::fsync(file.get()); }) != 0) {
        return false;
    }
    const std::optional<std::string> found = contentsOf(file);
    if (!found) {
        return false;
    }
    if (*found != bytes) {
        errno = EIO;
        return false;
    }
    return file.close();
}

ReplaceResult create(const fs::path& path, std::string_view bytes) {
    FileDescriptor file = open(path, O_CREAT | O_EXCL);
    if (!file.isOpen()) {
        return failed(errno);
    }
    if (!writeAndCheck(std::move(file), bytes)) {
        const int error = errno;
        ::unlink(path.c_str());
        return failed(error);
    }
    return {true, {}, false};
}

}  // namespace

ReplaceResult overwriteFile(const fs::path& path, std::string_view bytes) {
    FileDescriptor file = open(path);
    if (!file.isOpen() && errno == ENOENT) {
        return create(path, bytes);
    }
    if (!file.isOpen()) {
        return failed(errno);
    }
    const std::optional<std::string> old = contentsOf(file);
    if (!old || !reserve(file, bytes.size())) {
        return failed(errno);
    }
    if (writeAndCheck(std::move(file), bytes)) {
        return {true, {}, false};
    }
    ReplaceResult result = failed(errno);
    FileDescriptor again = open(path);
    if (!again.isOpen() || !writeAndCheck(std::move(again), *old)) {
        result.reason += ", and the old file could not be put back: it is damaged";
    }
    return result;
}

}  // namespace files
