#include "architecture/Circles.h"

#include <map>
#include <set>

#include "architecture/Tree.h"

namespace architecture {

namespace {

/// What each file includes, all by their names without an ending.
using Needs = std::map<std::string, std::set<std::string>>;

std::string nameOf(std::filesystem::path file) {
    return file.replace_extension().generic_string();
}

Needs needsUnder(const std::filesystem::path& folder) {
    Needs needs;
    for (const Include& include : includesUnder(folder)) {
        const std::string name = nameOf(include.file);
        const std::string needed = nameOf(include.target);
        if (!include.angled && needed != name) {
            needs[name].insert(needed);
        }
    }
    return needs;
}

void collectNeeds(const Needs& needs, const std::string& name, std::set<std::string>& all) {
    const auto direct = needs.find(name);
    if (direct == needs.end()) {
        return;
    }
    for (const std::string& needed : direct->second) {
        if (all.insert(needed).second) {
            collectNeeds(needs, needed, all);
        }
    }
}

}  // namespace

std::vector<std::string> filesInCircles(const std::filesystem::path& folder) {
    const Needs needs = needsUnder(folder);
    std::vector<std::string> found;
    for (const auto& [name, direct] : needs) {
        std::set<std::string> all;
        collectNeeds(needs, name, all);
        if (all.contains(name)) {
            found.push_back(name);
        }
    }
    return found;
}

}  // namespace architecture
