#include "files/CallScript.h"

#include <fcntl.h>
#include <sys/types.h>

#include <cerrno>
#include <cstdarg>
#include <utility>

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

void CallScript::fail(std::string_view call, int error, int times, int after) {
    failures_[std::string(call)] = {error, times, after};
}

void CallScript::before(std::string_view call, std::function<void()> happening) {
    happenings_[std::string(call)] = std::move(happening);
}

bool CallScript::takes(std::string_view call) {
    calls_.emplace_back(call);
    if (const auto happening = happenings_.find(call); happening != happenings_.end()) {
        const auto happen = std::move(happening->second);
        happenings_.erase(happening);
        happen();
    }
    const auto failure = failures_.find(call);
    if (failure == failures_.end() || failure->second.times == 0) {
        return false;
    }
    if (failure->second.after > 0) {
        --failure->second.after;
        return false;
    }
    --failure->second.times;
    errno = failure->second.error;
    return true;
}

}  // namespace files

// What the linker puts in the place of each call, and the call itself. It decides the names.
#ifdef __clang__
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier"
#endif
extern "C" {

ssize_t __real_read(int file, void* bytes, std::size_t size);
ssize_t __real_write(int file, const void* bytes, std::size_t size);
int __real_fsync(int file);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_fchown(int file, uid_t user, gid_t group);
int __real_fchmod(int file, mode_t mode);
int __real_open(const char* path, int flags, ...);
int __real_mkostemp(char* path, int flags);
int __real_fallocate(int file, int mode, off_t from, off_t size);
int __real_ftruncate(int file, off_t size);
int __real_flock(int file, int operation);

ssize_t __wrap_read(int file, void* bytes, std::size_t size);
ssize_t __wrap_write(int file, const void* bytes, std::size_t size);
int __wrap_fsync(int file);
int __wrap_close(int file);
int __wrap_rename(const char* from, const char* to);
int __wrap_fchown(int file, uid_t user, gid_t group);
int __wrap_fchmod(int file, mode_t mode);
int __wrap_open(const char* path, int flags, ...);
int __wrap_mkostemp(char* path, int flags);
int __wrap_fallocate(int file, int mode, off_t from, off_t size);
int __wrap_ftruncate(int file, off_t size);
int __wrap_flock(int file, int operation);

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

int __wrap_open(const char* path, int flags, ...) {
    std::va_list others;
    va_start(others, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(others, mode_t) : 0;
    va_end(others);
    return files::fails("open") ? -1 : __real_open(path, flags, mode);
}

int __wrap_mkostemp(char* path, int flags) {
    return files::fails("mkostemp") ? -1 : __real_mkostemp(path, flags);
}

int __wrap_fallocate(int file, int mode, off_t from, off_t size) {
    return files::fails("fallocate") ? -1 : __real_fallocate(file, mode, from, size);
}

int __wrap_flock(int file, int operation) {
    return files::fails("flock") ? -1 : __real_flock(file, operation);
}

int __wrap_ftruncate(int file, off_t size) {
    const bool failing = files::fails("ftruncate");
    return failing && errno == 0 ? 0 : failing ? -1 : __real_ftruncate(file, size);
}

}  // extern "C"
#ifdef __clang__
#pragma clang diagnostic pop
#endif
