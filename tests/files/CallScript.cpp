#include "files/CallScript.h"

#include <sys/types.h>

#include <cerrno>

namespace files {
namespace {

// System calls have no object to find the script by. One test runs at a time.
CallScript* current = nullptr;

bool fails(std::string_view call) {
    return current != nullptr && current->takes(call);
}

std::size_t allowed(std::size_t size) {
    return current != nullptr ? current->atMost(size) : size;
}

}  // namespace

CallScript::CallScript() {
    current = this;
}

CallScript::~CallScript() {
    current = nullptr;
}

void CallScript::fail(std::string_view call, int error, int times) {
    failures_[std::string(call)] = {error, times};
}

bool CallScript::takes(std::string_view call) {
    calls_.emplace_back(call);
    const auto failure = failures_.find(call);
    if (failure == failures_.end() || failure->second.times == 0) {
        return false;
    }
    --failure->second.times;
    errno = failure->second.error;
    return true;
}

}  // namespace files

// What the linker puts in the place of each call, and the call itself. It decides the names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

ssize_t __real_read(int file, void* bytes, std::size_t size);
ssize_t __real_write(int file, const void* bytes, std::size_t size);
int __real_fsync(int file);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_fchown(int file, uid_t user, gid_t group);
int __real_fchmod(int file, mode_t mode);

ssize_t __wrap_read(int file, void* bytes, std::size_t size);
ssize_t __wrap_write(int file, const void* bytes, std::size_t size);
int __wrap_fsync(int file);
int __wrap_close(int file);
int __wrap_rename(const char* from, const char* to);
int __wrap_fchown(int file, uid_t user, gid_t group);
int __wrap_fchmod(int file, mode_t mode);

ssize_t __wrap_read(int file, void* bytes, std::size_t size) {
    return files::fails("read") ? -1 : __real_read(file, bytes, files::allowed(size));
}

ssize_t __wrap_write(int file, const void* bytes, std::size_t size) {
    return files::fails("write") ? -1 : __real_write(file, bytes, files::allowed(size));
}

int __wrap_fsync(int file) {
    return files::fails("fsync") ? -1 : __real_fsync(file);
}

int __wrap_close(int file) {
    const bool failing = files::fails("close");
    const int error = errno;
    const int result = __real_close(file);  // it is closed even where that fails
    if (failing) {
        errno = error;
    }
    return failing ? -1 : result;
}

int __wrap_rename(const char* from, const char* to) {
    return files::fails("rename") ? -1 : __real_rename(from, to);
}

int __wrap_fchown(int file, uid_t user, gid_t group) {
    return files::fails("fchown") ? -1 : __real_fchown(file, user, group);
}

int __wrap_fchmod(int file, mode_t mode) {
    return files::fails("fchmod") ? -1 : __real_fchmod(file, mode);
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
