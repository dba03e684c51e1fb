#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace files {

/// An empty folder that goes with this object, with everything in it. Every user may look into it.
class TemporaryFolder {
public:
    explicit TemporaryFolder(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path());
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& name) const {
        return path_ / name;
    }

    /// The names in it, hidden ones too, in alphabetical order.
    [[nodiscard]] std::vector<std::string> names() const;

private:
    std::filesystem::path path_;
};

/// A parent whose files are kept in memory, so that flushing them costs nothing; where there is
/// none to be written to, the usual one.
std::filesystem::path parentInMemory();

/// Writes a file in the plain way; fails the test where it cannot.
void write(const std::filesystem::path& file, std::string_view bytes);

/// All bytes of a file; fails the test where they cannot be had.
std::string contents(const std::filesystem::path& file);

/// Permission bits, those beyond the usual nine too.
unsigned permissions(const std::filesystem::path& file);

/// The names in a folder, in alphabetical order.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

}  // namespace files
