#pragma once

#include <sys/types.h>

#include <csignal>
#include <stdexcept>
#include <string>
#include <vector>

#include "kernel/Program.h"

namespace kernel {

/// Another program with ports of its own; see otherProgram.cpp for what they can be.
class OtherProgram {
public:
    OtherProgram(const std::string& name, const std::vector<std::string>& ports)
        : program_(command(name, ports)) {
        if (!program_.waitForOutput("ready", std::chrono::seconds(20))) {
            throw std::runtime_error("the other program did not start: " + program_.output());
        }
    }
    [[nodiscard]] pid_t process() const { return program_.process(); }

    /// Has it send a note, 90 3C 64, from its first port to all that are connected there.
    void play() const { ::kill(program_.process(), SIGUSR1); }

private:
    static std::vector<std::string> command(const std::string& name,
                                            const std::vector<std::string>& ports) {
        std::vector<std::string> words{TORMELK_OTHER_PROGRAM, name};
        words.insert(words.end(), ports.begin(), ports.end());
        return words;
    }

    Program program_;
};

}  // namespace kernel
