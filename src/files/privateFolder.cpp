#include "files/privateFolder.h"

#include <sys/stat.h>

#include <cerrno>

namespace files {

bool makePrivateFolder(const std::filesystem::path& path) {
    std::filesystem::path made;
    for (const std::filesystem::path& part : path) {
        made /= part;
        // A folder that is there can also be one in which nothing may be made.
        struct stat status {};
        if (::stat(made.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
            continue;
        }
        if (::mkdir(made.c_str(), 0700) != 0 && errno != EEXIST) {
            return false;
        }
    }
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return false;
    }
    errno = S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
    return S_ISDIR(status.st_mode);
}

}  // namespace files
