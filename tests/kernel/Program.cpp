#include "kernel/Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "kernel/systemFiles.h"

namespace kernel {

namespace {

std::vector<char*> arguments(std::vector<std::string>& command) {
    std::vector<char*> pointers;
    pointers.reserve(command.size() + 1);
    for (std::string& word : command) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Starts the command with both its outputs going into the descriptor. It leads a group of
/// processes, so that those it starts can be ended with it.
pid_t start(std::vector<std::string>& command, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes, 0);
    pid_t process = -1;
    const int error = posix_spawnp(&process, command.at(0).c_str(), &actions, &attributes,
                                   arguments(command).data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw SystemFailure("starting " + command[0], error);
    }
    return process;
}

}  // namespace

Program::Program(std::vector<std::string> command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw SystemFailure("making a pipe", errno);
    }
    pipe_ = ends[0];
    try {
        process_ = start(command, ends[1]);
    } catch (...) {
        close(ends[0]);
        close(ends[1]);
        throw;
    }
    close(ends[1]);
    collector_ = std::thread([this] { collectOutput(); });
}

Program::~Program() {
    finish(std::chrono::milliseconds(0));
}

void Program::collectOutput() {
    std::array<char, 4096> part{};
    for (ssize_t size = 0; (size = read(pipe_, part.data(), part.size())) > 0;) {
        {
            const std::lock_guard lock(mutex_);
            output_.append(part.data(), static_cast<std::size_t>(size));
        }
        changed_.notify_all();
    }
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    changed_.notify_all();
}

std::string Program::output() const {
    const std::lock_guard lock(mutex_);
    return output_;
}

bool Program::waitForOutput(const std::string& text, std::chrono::milliseconds limit) const {
    const auto found = [&] { return output_.find(text) != std::string::npos; };
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, limit, [&] { return ended_ || found(); });
    return found();
}

ProgramResult Program::finish(std::chrono::milliseconds limit) {
    if (!reaped_) {
        std::unique_lock lock(mutex_);
        if (!changed_.wait_for(lock, limit, [this] { return ended_; })) {
            kill(-process_, SIGKILL);
        }
    }
    return reap();
}

ProgramResult Program::stop(int signal) {
    if (!reaped_) {
        kill(-process_, signal);
    }
    return finish(std::chrono::seconds(5));
}

ProgramResult Program::reap() {
    if (!std::exchange(reaped_, true)) {
        int status = 0;
        while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
        }
        collector_.join();
        close(pipe_);
        result_ = {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), output_};
    }
    return result_;
}

ProgramResult run(std::vector<std::string> command, std::chrono::milliseconds limit) {
    return Program(std::move(command)).finish(limit);
}

}  // namespace kernel
