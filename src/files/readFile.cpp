#include "files/readFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "files/FileDescriptor.h"

namespace files {
namespace {

using Status = ReadResult::Status;

bool isRegular(const struct stat& status) {
    return S_ISREG(status.st_mode);
}

/// Reads until `limit` or the end; false on an error.
bool readBeginning(int descriptor, std::size_t limit, std::string& bytes) {
    constexpr std::size_t chunk = 65536;
    while (bytes.size() < limit) {
        const std::size_t before = bytes.size();
        bytes.resize(std::min(limit, before + chunk));
        const ssize_t count = ::read(descriptor, bytes.data() + before, bytes.size() - before);
        bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) {
            return true;
        }
        if (count < 0 && errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace

ReadResult readFile(const std::filesystem::path& path, std::size_t limit) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0 && !isRegular(status)) {
        return {Status::NotRegular, {}};
    }
    // Not waiting matters where the path has become a pipe since it was looked at.
    const FileDescriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        return {Status::CannotOpen, {}};
    }
    if (::fstat(file.get(), &status) != 0 || !isRegular(status)) {
        return {Status::NotRegular, {}};
    }
    ReadResult result;
    result.status = readBeginning(file.get(), limit, result.bytes) ? Status::Read : Status::Failed;
    return result;
}

}  // namespace files
