#include "files/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>

namespace files {

std::optional<FileLock> FileLock::lock(const std::filesystem::path& path, Kind kind, int flags) {
    // Open for writing: over a network only such a file can be had for oneself. Neither a pipe that
    // nobody reads nor a link to elsewhere is waited for or followed.
    FileDescriptor file(uninterrupted([&] {
        return ::open(path.c_str(), flags | O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
    }));
    if (!file.isOpen()) {
        return std::nullopt;
    }
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) {
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        errno = EINVAL;
        return std::nullopt;
    }
    const int operation = kind == Kind::Exclusive ? LOCK_EX : LOCK_SH;
    if (uninterrupted([&] { return ::flock(file.get(), operation | LOCK_NB); }) != 0) {
        return std::nullopt;
    }
    FileLock lock(path, std::move(file));
    if (!lock.isInPlace()) {
        errno = EWOULDBLOCK;  // who had it before has removed the file
        return std::nullopt;
    }
    return lock;
}

std::optional<FileLock> FileLock::tryToLock(const std::filesystem::path& path, Kind kind) {
    return lock(path, kind, 0);
}

std::optional<FileLock> FileLock::tryToMake(const std::filesystem::path& path) {
    std::optional<FileLock> made = lock(path, Kind::Exclusive, O_CREAT | O_EXCL);
    if (!made && errno != EEXIST && errno != EWOULDBLOCK) {
        const int error = errno;
        ::unlink(path.c_str());  // a file system without locks
        errno = error;
    }
    return made;
}

bool FileLock::isInPlace() const {
    struct stat locked {};
    struct stat found {};
    return ::fstat(file_.get(), &locked) == 0 && ::lstat(path_.c_str(), &found) == 0 &&
           locked.st_dev == found.st_dev && locked.st_ino == found.st_ino;
}

}  // namespace files
