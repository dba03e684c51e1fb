#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace architecture {

/// A small tree of source files in a temporary folder, made to be judged by the checks and gone
/// with the object.
class ScratchTree {
public:
    ScratchTree() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tree-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        root_ = pattern;
    }
    ScratchTree(const ScratchTree&) = delete;
    ScratchTree& operator=(const ScratchTree&) = delete;
    ~ScratchTree() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

    void write(const std::string& file, const std::string& text) const {
        std::filesystem::create_directories((root_ / file).parent_path());
        std::ofstream(root_ / file) << text;
    }

    [[nodiscard]] const std::filesystem::path& root() const { return root_; }

private:
    std::filesystem::path root_;
};

}  // namespace architecture
