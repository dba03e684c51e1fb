#include "architecture/TestLayering.h"

#include <algorithm>
#include <regex>

#include "architecture/Layering.h"
#include "architecture/Tree.h"

namespace architecture {

namespace fs = std::filesystem;

namespace {

/// Hands for windows, which know the toolkit.
const std::string windows = "support/windows";

const TestFolder* findTestFolder(const std::string& name) {
    const auto folder = std::ranges::find(testFolders(), name, &TestFolder::name);
    return folder == testFolders().end() ? nullptr : &*folder;
}

/// The folder of tests/ or the room that a file is of: the innermost one that is known, or nothing.
std::string ownerOf(const fs::path& file) {
    for (fs::path folder = file.parent_path(); !folder.empty(); folder = folder.parent_path()) {
        std::string name = folder.generic_string();
        if (findTestFolder(name) != nullptr || findRoom(name) != nullptr) {
            return name;
        }
    }
    return {};
}

bool isException(const std::string& owner, const std::string& used) {
    return std::ranges::any_of(exceptions(), [&](const Exception& exception) {
        return exception.room == owner && exception.uses == used;
    });
}

bool follows(const std::string& owner, const std::string& used) {
    const Room* room = findRoom(owner);
    if (used == owner || used == "support" || owner.starts_with(used + "/")) {
        return true;
    }
    if (used == windows && room != nullptr) {
        return !room->core;
    }
    const std::vector<std::string>& allowed =
        room != nullptr ? room->uses : findTestFolder(owner)->uses;
    return std::ranges::count(allowed, used) > 0;
}

std::string offence(const std::string& owner, const Include& include) {
    static const std::regex windowsOrWire("(Q[A-Z]|Qt[A-Z]|alsa/).*");
    const std::string tests = "the tests of " + owner + " may not ";
    if (include.angled) {
        const Room* room = findRoom(owner);
        const bool forbidden =
            room != nullptr && room->core && std::regex_match(include.target, windowsOrWire);
        return forbidden ? tests + "include <" + include.target + ">" : "";
    }
    if (include.target.ends_with(".moc")) {
        return "";
    }
    const std::string used = ownerOf(include.target);
    if (used.empty()) {
        return "\"" + include.target + "\" names no room";
    }
    return follows(owner, used) || isException(owner, used) ? "" : tests + "use " + used;
}

}  // namespace

const std::vector<TestFolder>& testFolders() {
    static const std::vector<TestFolder> table{
        {"architecture", {}},
        {"fuzz", {"config", "files", "firmware", "midi", "platform"}},
        {"kernel",
         {"config", "files", "platform", "platform/alsa", "midi", "midi/archive", "devices",
          "simulator"}},
        {"packaging", {"config"}},
        {"qt", {"qt/surface"}},
        {"support",
         {"toolkit", "platform", "platform/software", "midi", "devices", "firmware", "editor"}},
        {windows, {}},
    };
    return table;
}

const std::vector<Exception>& exceptions() {
    static const std::vector<Exception> table{
        {"app", "config", "compares what arrives with the image"},
        {"app", "qt", "measures how the texts of all windows stand out"},
        {"app", "qt/surface", "has the drawn controller by itself in a picture"},
        {"app", "qt/widgets", "looks at every widget of all windows"},
        {"app", "sending", "waits for as long as the pauses are"},
        {"app", "texts", "tells bytes as digits"},
        {"firmware", "midi", "puts the devices it needs together from the endpoint layer up"},
        {"platform/alsa", "files", "an empty folder to watch"},
        {"qt/access", "qt/widgets", "a box to tell of"},
        {"qt/surface", "qt/desktop", "the shield that takes its input away"},
        {"qt/widgets", "tables", "shows the lists a person chooses from"},
        {"qt/widgets", "texts", "shows the lists a person chooses from"},
        {"qt/windows", "files", "an empty folder for firmware files"},
        {"qt/windows", "midi", "puts the devices it needs together from the endpoint layer up"},
        {"qt/windows", "platform", "the notification centre behind the devices"},
        {"toolkit", "tables", "searches the lists a person searches"},
    };
    return table;
}

std::vector<std::string> testOffences(const fs::path& tests) {
    std::vector<std::string> offences;
    for (const Include& include : includesUnder(tests)) {
        const std::string owner = ownerOf(include.file);
        const std::string wrong =
            owner.empty() ? "the file stands in no folder that is known" : offence(owner, include);
        if (!wrong.empty()) {
            offences.push_back(include.file.generic_string() + ":" + std::to_string(include.line) +
                               ": " + wrong);
        }
    }
    return offences;
}

std::vector<std::string> exceptionsInVain(const fs::path& tests) {
    std::vector<std::string> vain;
    const std::vector<Include> includes = includesUnder(tests);
    for (const Exception& exception : exceptions()) {
        const bool needed = std::ranges::any_of(includes, [&exception](const Include& include) {
            return !include.angled && ownerOf(include.file) == exception.room &&
                   ownerOf(include.target) == exception.uses;
        });
        if (!needed || follows(exception.room, exception.uses)) {
            vain.push_back(exception.room + ": " + exception.uses);
        }
    }
    return vain;
}

}  // namespace architecture
