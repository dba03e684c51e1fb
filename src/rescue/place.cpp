#include "rescue/place.h"

#include <cstdlib>

namespace rescue {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> absolute(const char* path) {
    const fs::path named = path == nullptr ? fs::path() : fs::path(path);
    return named.is_absolute() ? std::optional(named) : std::nullopt;
}

}  // namespace

std::optional<fs::path> place(const char* stateHome, const char* home) {
    constexpr const char* ownFolder = "tormelk-wyro";
    if (const auto named = absolute(stateHome)) {
        return *named / ownFolder;
    }
    if (const auto named = absolute(home)) {
        return *named / ".local" / "state" / ownFolder;
    }
    return std::nullopt;
}

std::optional<fs::path> place() {
    return place(std::getenv("XDG_STATE_HOME"), std::getenv("HOME"));
}

}  // namespace rescue
