#include "architecture/Commands.h"

#include <array>
#include <cstdio>
#include <sstream>

namespace architecture {

CommandResult run(const std::string& command) {
    CommandResult result;
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return result;
    }
    std::string output;
    std::array<char, 4096> part{};
    while (const std::size_t size = std::fread(part.data(), 1, part.size(), pipe)) {
        output.append(part.data(), size);
    }
    result.succeeded = pclose(pipe) == 0;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);) {
        result.lines.push_back(line);
    }
    return result;
}

std::string quoted(const std::string& text) {
    std::string word = "'";
    for (const char letter : text) {
        word += letter == '\'' ? "'\\''" : std::string(1, letter);
    }
    return word + "'";
}

}  // namespace architecture
