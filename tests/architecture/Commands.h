#pragma once

#include <string>
#include <vector>

namespace architecture {

/// What a command printed on its standard output, line by line, and whether it ended well.
struct CommandResult {
    std::vector<std::string> lines;
    bool succeeded = false;
};

/// Runs a shell command and waits for it. What it prints as an error is left where it is.
[[nodiscard]] CommandResult run(const std::string& command);

/// The text as one word of a shell command.
[[nodiscard]] std::string quoted(const std::string& text);

}  // namespace architecture
