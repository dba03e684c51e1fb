#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

// The files through which the kernel is told what to do, and tells what it knows.

namespace kernel {

/// Something the kernel refused, with what was tried and the system's reason.
class SystemFailure : public std::runtime_error {
public:
    /// The reason is the error number, not negated.
    SystemFailure(const std::string& what, int error);
};

/// The whole text of a file.
[[nodiscard]] std::string textOf(const std::filesystem::path& file);

/// Writes the text in one go, as the kernel's own files demand.
void writeText(const std::filesystem::path& file, const std::string& text);

}  // namespace kernel
