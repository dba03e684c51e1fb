#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// While it lives, the system calls that reading and replacing files are made of go through it:
/// it writes them down and makes them fail as a test wants. They are open, mkostemp,
/// read, write, fallocate, ftruncate, fsync, close, rename, fchown, fchmod and flock; the linker
/// sends them here (see CMakeLists.txt).
class CallScript {
public:
    CallScript();
    CallScript(const CallScript&) = delete;
    CallScript& operator=(const CallScript&) = delete;
    ~CallScript();

    /// `times` calls of this name do nothing and report `error`: the next ones, or those after
    /// `after` that go well.
    void fail(std::string_view call, int error, int times = 1, int after = 0);

    /// The next call of this name does nothing and reports success.
    void pretend(std::string_view call) { fail(call, 0); }

    /// Right before the next call of this name something else happens, as if others did it.
    void before(std::string_view call, std::function<void()> happening);

    /// No read and no write takes more bytes than this at a time.
    void shorten(std::size_t most) { most_ = most; }

    /// The names of the calls, in order.
    [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }

    // For the calls themselves.

    /// Notes a call; sets `errno` and answers true where it is to fail.
    [[nodiscard]] bool takes(std::string_view call);
    [[nodiscard]] std::size_t atMost(std::size_t size) const { return size < most_ ? size : most_; }

private:
    struct Failure {
        int error = 0;
        int times = 0;
        int after = 0;
    };
    std::map<std::string, Failure, std::less<>> failures_;
    std::map<std::string, std::function<void()>, std::less<>> happenings_;
    std::vector<std::string> calls_;
    std::size_t most_ = static_cast<std::size_t>(-1);
};

}  // namespace files
