#pragma once

#include <sys/types.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kernel {

/// How a program ended.
struct ProgramResult {
    /// Its exit status; 128 and the signal's number if a signal ended it.
    int status = 0;
    /// All that it wrote, on standard output and standard error, in the order of writing.
    std::string output;
};

/// Another program that runs beside the test: one of the public MIDI tools, or one of ours. It is
/// looked for in PATH and has nothing to read on its standard input. Killed when the object goes.
class Program {
public:
    explicit Program(std::vector<std::string> command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] pid_t process() const { return process_; }

    /// What it has written so far.
    [[nodiscard]] std::string output() const;

    /// Waits until the text stands in the output. False if it is not there within the limit, or
    /// the program has ended without it.
    [[nodiscard]] bool waitForOutput(const std::string& text,
                                     std::chrono::milliseconds limit) const;

    /// Waits for the program to end by itself; kills it after the limit.
    ProgramResult finish(std::chrono::milliseconds limit);

    /// Sends it, and those it has started, a signal and waits for the end; kills them when it has
    /// not ended after 5 s.
    ProgramResult stop(int signal);

private:
    void collectOutput();
    ProgramResult reap();

    pid_t process_ = -1;
    int pipe_ = -1;
    bool reaped_ = false;
    ProgramResult result_;
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::string output_;
    bool ended_ = false;
    std::thread collector_;
};

/// Runs a program to its end; kills it after the limit.
ProgramResult run(std::vector<std::string> command,
                  std::chrono::milliseconds limit = std::chrono::seconds(20));

}  // namespace kernel
