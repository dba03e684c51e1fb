#include "architecture/TakenOverNames.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "architecture/Tree.h"

namespace architecture {

namespace fs = std::filesystem;

namespace {

bool isNameLetter(char letter) {
    return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_';
}

std::string_view withoutIndent(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

/// The name that the line takes over; empty if it takes over none.
std::string_view takenOverBy(std::string_view line) {
    line = withoutIndent(line);
    if (line.starts_with("using ") && line.ends_with(';')) {
        const std::size_t colons = line.rfind("::");
        const bool another = line.find('=') != std::string_view::npos ||
                             line.starts_with("using namespace ") ||
                             line.starts_with("using enum ") || colons == std::string_view::npos;
        return another ? std::string_view()
                       : line.substr(colons + 2, line.size() - 1 - (colons + 2));
    }
    const std::size_t equals = line.find(" = ");
    if (line.starts_with("namespace ") && equals != std::string_view::npos) {
        const std::size_t begin = std::string_view("namespace ").size();
        return line.substr(begin, equals - begin);
    }
    return {};
}

/// Whether the line has the name as a whole word that is not another namespace's.
bool uses(std::string_view line, std::string_view name) {
    for (std::size_t at = line.find(name); at != std::string_view::npos;
         at = line.find(name, at + 1)) {
        const std::size_t end = at + name.size();
        const char before = at == 0 ? ' ' : line[at - 1];
        const char after = end == line.size() ? ' ' : line[end];
        if (!isNameLetter(before) && before != ':' && !isNameLetter(after)) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<std::string> namesTakenOverInVain(const fs::path& folder) {
    std::vector<std::string> found;
    for (const fs::path& file : filesUnder(folder, {".cpp"})) {
        std::vector<std::string> lines = linesOf(folder / file);
        std::erase_if(
            lines, [](const std::string& line) { return withoutIndent(line).starts_with("//"); });
        for (const std::string& line : lines) {
            const std::string_view name = takenOverBy(line);
            const bool used = std::ranges::any_of(lines, [&](const std::string& other) {
                return &other != &line && takenOverBy(other) != name && uses(other, name);
            });
            if (!name.empty() && !used) {
                found.push_back(file.generic_string() + ": " + std::string(name));
            }
        }
    }
    return found;
}

}  // namespace architecture
