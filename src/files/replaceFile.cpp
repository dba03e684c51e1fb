#include "files/replaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <tuple>

#include "files/FileDescriptor.h"
#include "files/failed.h"
#include "files/overwriteFile.h"

namespace files {
namespace {

namespace fs = std::filesystem;

/// The file a path stands for, through any number of symbolic links, the last of which may point
/// to nothing yet.
fs::path targetOf(fs::path path) {
    constexpr int mostLinks = 40;  // as many as the kernel follows
    for (int links = 0; links < mostLinks; ++links) {
        std::error_code error;
        const fs::path next = fs::read_symlink(path, error);
        if (error) {
            break;
        }
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

mode_t permissionsOfNewFiles() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

/// An unfinished file beside the target; removed again unless it was put in place.
class UnfinishedFile {
public:
    explicit UnfinishedFile(const fs::path& target)
        : path_((folderOf(target) / ".unfinished-XXXXXX").string()),
          file_(::mkostemp(path_.data(), O_CLOEXEC)) {}
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile() {
        if (file_.isOpen() || closed_) {
            ::unlink(path_.c_str());
        }
    }

    [[nodiscard]] bool isOpen() const { return file_.isOpen(); }

    /// Those of the old file, or of any new one; before, it is its owner's alone. As far as the
    /// system lets it: some mounts have permissions and owners of their own.
    void takeAttributes(const std::optional<struct stat>& old) {
        if (!old) {
            std::ignore = ::fchmod(file_.get(), permissionsOfNewFiles());
            return;
        }
        // Another user's file stays theirs where this user may give files away, and stays with its
        // group where not. This comes first: it takes permission bits away.
        const bool given = ::fchown(file_.get(), old->st_uid, old->st_gid) == 0;
        if (!given) {
            std::ignore = ::fchown(file_.get(), static_cast<uid_t>(-1), old->st_gid);
        }
        // Running with a file's rights is for its real owner and group only.
        const mode_t kept = given ? 07777 : 0777;
        std::ignore = ::fchmod(file_.get(), old->st_mode & kept);
    }

    bool write(std::string_view bytes) { return file_.writeAll(bytes); }

    bool flushAndClose() {
        if (uninterrupted([&] { return ::fsync(file_.get()); }) != 0) {
            return false;
        }
        closed_ = true;
        return file_.close();
    }

    bool putInPlaceOf(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) {
            return false;
        }
        closed_ = false;
        return true;
    }

private:
    std::string path_;
    FileDescriptor file_;
    bool closed_ = false;  // written and closed, not yet in place
};

/// Makes the new name last through a power cut. The file is in place already, so a folder that
/// cannot be flushed is no failure.
void flushFolder(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen()) {
        ::fsync(opened.get());
    }
}

/// Whether the system will not have a file put in the place of another there, whatever is in it. A
/// full disk is no such reason: a file that is written over there can be lost with what was in it.
bool forbidsReplacing(int error) {
    switch (error) {
        case EACCES:  // no new files in this folder
        case EPERM:   // a shared folder where only the file's owner may replace it
        case EROFS:   // one file that can be written in a folder that cannot
        case EBUSY:   // a file that is a mount
        case EXDEV:
        case EINVAL:
        case ENOSYS:
        case EOPNOTSUPP:
            return true;
        default:
            return false;
    }
}

struct Attempt {
    int error = 0;
    bool isForbidden = false;  // another way may be open
};

Attempt putInPlace(UnfinishedFile& unfinished, const fs::path& target, std::string_view bytes) {
    if (!unfinished.write(bytes) || !unfinished.flushAndClose()) {
        return {errno};
    }
    if (!unfinished.putInPlaceOf(target)) {
        return {errno, forbidsReplacing(errno)};
    }
    return {};
}

Attempt replaceInOneStep(const fs::path& target, const std::optional<struct stat>& old,
                         std::string_view bytes) {
    UnfinishedFile unfinished(target);
    if (!unfinished.isOpen()) {
        return {errno, forbidsReplacing(errno)};
    }
    unfinished.takeAttributes(old);
    return putInPlace(unfinished, target, bytes);
}

}  // namespace

ReplaceResult replaceFile(const fs::path& path, std::string_view bytes) {
    const fs::path target = targetOf(path);
    std::optional<struct stat> old;
    struct stat status {};
    if (::stat(target.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) {
            return failed(EISDIR);
        }
        if (!S_ISREG(status.st_mode)) {
            return {false, "It is not a file but a device, a pipe or a socket"};
        }
        if (::access(target.c_str(), W_OK) != 0) {
            return failed(errno);  // a file that is protected against writing stays so
        }
        old = status;
    } else if (errno != ENOENT) {
        return failed(errno);
    }
    if (old && old->st_nlink > 1) {
        return overwriteFile(target, bytes);  // its other names stay names of the same file
    }
    const Attempt attempt = replaceInOneStep(target, old, bytes);
    if (attempt.isForbidden) {
        return overwriteFile(target, bytes);
    }
    if (attempt.error != 0) {
        return failed(attempt.error);
    }
    flushFolder(folderOf(target));
    return {true, {}};
}

ReplaceResult replacePrivateFile(const fs::path& path, std::string_view bytes) {
    UnfinishedFile unfinished(path);
    if (!unfinished.isOpen()) {
        return failed(errno);
    }
    const Attempt attempt = putInPlace(unfinished, path, bytes);
    if (attempt.error != 0) {
        return failed(attempt.error);
    }
    flushFolder(folderOf(path));
    return {true, {}};
}

}  // namespace files
