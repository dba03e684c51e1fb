#include "kernel/systemFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

namespace kernel {

SystemFailure::SystemFailure(const std::string& what, int error)
    : std::runtime_error(what + ": " + std::generic_category().message(error)) {}

std::string textOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    if (!stream) {
        throw SystemFailure("reading " + file.string(), errno);
    }
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

void writeText(const std::filesystem::path& file, const std::string& text) {
    const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0) {
        throw SystemFailure("opening " + file.string(), errno);
    }
    const ssize_t written = write(descriptor, text.data(), text.size());
    const int error = errno;
    close(descriptor);
    if (written < 0) {
        throw SystemFailure("writing \"" + text + "\" to " + file.string(), error);
    }
}

}  // namespace kernel
