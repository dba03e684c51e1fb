#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

namespace files {

/// Makes a system call again for as long as a signal breaks into it.
template <typename Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// An open file of the operating system, closed with this object. What fails leaves the reason in
/// `errno`.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() {
        if (descriptor_ >= 0) {
            const int error = errno;
            ::close(descriptor_);
            errno = error;
        }
    }

    [[nodiscard]] bool isOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int get() const { return descriptor_; }

    /// Writes all of it, however many pieces the system makes of it.
    [[nodiscard]] bool writeAll(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count =
                uninterrupted([&] { return ::write(descriptor_, bytes.data(), bytes.size()); });
            if (count <= 0) {
                errno = count == 0 ? EIO : errno;
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    /// Fills `bytes` from where the file stands; shortens it where the file ends first.
    [[nodiscard]] bool readUpTo(std::string& bytes) const {
        std::size_t size = 0;
        ssize_t count = 1;
        while (size < bytes.size() && count > 0) {
            count = uninterrupted(
                [&] { return ::read(descriptor_, bytes.data() + size, bytes.size() - size); });
            size += count > 0 ? static_cast<std::size_t>(count) : 0;
        }
        bytes.resize(size);
        return count >= 0;
    }

    /// Closes now; false if the system reports that something was not written.
    [[nodiscard]] bool close() { return ::close(std::exchange(descriptor_, -1)) == 0; }

private:
    int descriptor_;
};

}  // namespace files
