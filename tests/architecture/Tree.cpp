#include "architecture/Tree.h"

#include <algorithm>
#include <fstream>
#include <regex>

namespace architecture {

namespace fs = std::filesystem;

std::vector<fs::path> filesUnder(const fs::path& folder,
                                 const std::vector<std::string>& extensions) {
    std::vector<fs::path> files;
    if (!fs::is_directory(folder)) {
        return files;
    }
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const std::string extension = entry.path().extension().string();
        if (entry.is_regular_file() && std::ranges::count(extensions, extension) > 0) {
            files.push_back(entry.path().lexically_relative(folder));
        }
    }
    std::ranges::sort(files);
    return files;
}

std::vector<Include> includesUnder(const fs::path& folder) {
    static const std::regex includeLine(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    std::vector<Include> includes;
    for (const fs::path& file : filesUnder(folder, {".h", ".cpp"})) {
        int number = 0;
        for (const std::string& line : linesOf(folder / file)) {
            ++number;
            std::smatch parts;
            if (std::regex_search(line, parts, includeLine)) {
                includes.push_back({file, number, parts[2].str(), parts[1].str() == "<"});
            }
        }
    }
    return includes;
}

std::vector<std::string> linesOf(const fs::path& file) {
    std::ifstream stream(file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace architecture
