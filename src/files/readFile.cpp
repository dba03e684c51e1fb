#include "files/readFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "files/FileDescriptor.h"

namespace files {
namespace {

using Status = ReadResult::Status;

bool isRegular(const struct stat& status) {
    return S_ISREG(status.st_mode);
}

/// What comes of wanting to read something that is no regular file.
Status statusOfOther(const std::filesystem::path& path, mode_t type, Access access) {
    const bool forWriting = access == Access::ReadAndWrite;
    const bool canBeOpened = !S_ISSOCK(type) && !(S_ISDIR(type) && forWriting) &&
                             ::access(path.c_str(), forWriting ? R_OK | W_OK : R_OK) == 0;
    return canBeOpened ? Status::NotRegular : Status::CannotOpen;
}

/// Reads until `limit` or the end; false on an error. `expected` is the size that the file says it
/// has: right for most, too small for a file that grows or that the system makes up.
bool readBeginning(int descriptor, std::size_t limit, std::size_t expected, std::string& bytes) {
    constexpr std::size_t chunk = 65536;
    // One byte more than expected, so that the end shows without further space.
    bytes.resize(std::min(limit, std::min(expected, chunk) + 1));
    std::size_t size = 0;
    ssize_t count = 1;
    while (size < limit && count != 0) {
        if (size == bytes.size()) {
            bytes.resize(std::min(limit, size + chunk));
        }
        count = ::read(descriptor, bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        size += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    }
    bytes.resize(size);
    return true;
}

}  // namespace

ReadResult readFile(const std::filesystem::path& path, std::size_t limit, Access access) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0 && !isRegular(status)) {
        return {statusOfOther(path, status.st_mode, access), {}, 0};
    }
    const int mode = access == Access::Read ? O_RDONLY : O_RDWR;
    // Not waiting matters where the path has become a pipe since it was looked at.
    const FileDescriptor file(::open(path.c_str(), mode | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        return {Status::CannotOpen, {}, 0};
    }
    if (::fstat(file.get(), &status) != 0 || !isRegular(status)) {
        return {Status::NotRegular, {}, 0};
    }
    ReadResult result;
    result.size = static_cast<std::uintmax_t>(std::max<off_t>(status.st_size, 0));
    const auto expected = static_cast<std::size_t>(result.size);
    const bool done = readBeginning(file.get(), limit, expected, result.bytes);
    result.status = done ? Status::Read : Status::Failed;
    return result;
}

}  // namespace files
