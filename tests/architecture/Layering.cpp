#include "architecture/Layering.h"

#include <algorithm>
#include <regex>
#include <set>
#include <utility>

#include "architecture/Tree.h"

namespace architecture {

namespace fs = std::filesystem;

namespace {

const std::string qtHeader = "Q[A-Za-z/]+|moc_\\w+\\.cpp";
const std::string archiveHeader = "nlohmann/.*";
/// The number of this process, which marks the endpoints it publishes.
const std::string processHeader = "unistd\\.h";
/// How exactly the kernel ends a sleep.
const std::string timerHeader = "sys/prctl\\.h";
/// Whole files, flushed, renamed and locked, and the descriptor to watch: the operating system's.
const std::string systemHeader = "unistd\\.h|fcntl\\.h|sys/(stat|file|eventfd)\\.h";

/// What another thread has is told to an event loop through a descriptor.
const std::string descriptorHeader = "unistd\\.h|sys/eventfd\\.h";
/// The sequencer's library, the kernel's own description of it, and what to wait for its events
/// with.
const std::string sequencerHeader =
    "alsa/asoundlib\\.h|sound/asequencer\\.h|unistd\\.h|fcntl\\.h|poll\\.h|pthread\\.h|"
    "sys/(epoll|eventfd|inotify|timerfd|ioctl)\\.h";

/// The name of the standard library's headers: lower case, without folder and ending. Those it has
/// from C are used under their C++ names.
bool isStandard(const std::string& target) {
    static const std::regex name("[a-z_0-9]+");
    return std::regex_match(target, name);
}

bool isAllowedFromOutside(const Room& room, const std::string& target) {
    return isStandard(target) ||
           std::ranges::any_of(room.external, [&target](const std::string& pattern) {
               return std::regex_match(target, std::regex(pattern));
           });
}

std::string at(const Include& include) {
    return include.file.generic_string() + ":" + std::to_string(include.line) + ": ";
}

/// What is wrong with an #include line of a room, or nothing.
std::string offence(const Room& room, const Include& include) {
    if (include.angled) {
        return isAllowedFromOutside(room, include.target)
                   ? ""
                   : room.name + " may not include <" + include.target + ">";
    }
    const Room* used = roomOf(include.target);
    if (used == nullptr) {
        return "\"" + include.target + "\" names no room";
    }
    const bool allowed = used == &room || std::ranges::count(room.uses, used->name) > 0;
    return allowed ? "" : room.name + " may not use " + used->name;
}

}  // namespace

const std::vector<Room>& rooms() {
    static const std::vector<Room> table{
        {"texts", {}, {}},
        {"tables", {"texts"}, {}},
        {"config", {"texts"}, {}},
        {"describe", {"texts", "tables", "config"}, {}},
        {"files", {}, {systemHeader}},
        {"rescue", {"config", "describe", "files"}, {}},
        {"toolkit", {"texts"}, {}},
        {"platform", {}, {}},
        {"platform/software", {"platform"}, {systemHeader}},
        {"platform/alsa", {"platform"}, {sequencerHeader}},
        {"midi/archive", {}, {archiveHeader}},
        {"midi", {"platform", "midi/archive"}, {processHeader}},
        {"devices", {"toolkit", "platform", "midi"}, {}},
        {"sending", {"config", "platform", "midi"}, {timerHeader}},
        {"firmware", {"texts", "files", "toolkit", "platform", "sending", "devices"}, {}},
        {"editor",
         {"texts", "tables", "config", "describe", "files", "rescue", "toolkit", "platform",
          "sending", "devices", "firmware"},
         {}},
        {"simulator", {"texts", "tables", "config", "files"}, {}},
        {"qt/access", {}, {qtHeader}, false},
        {"qt/widgets", {"toolkit", "qt/access"}, {qtHeader}, false},
        {"qt/surface",
         {"config", "describe", "toolkit", "editor", "qt/access", "qt/widgets"},
         {qtHeader},
         false},
        {"qt/desktop", {"toolkit", "platform", "sending", "qt/widgets"}, {qtHeader}, false},
        {"qt/windows",
         {"texts", "tables", "config", "describe", "rescue", "sending", "devices", "firmware",
          "editor", "simulator", "qt/access", "qt/widgets", "qt/surface", "qt/desktop"},
         {qtHeader},
         false},
        {"app",
         {"rescue", "platform", "platform/software", "platform/alsa", "midi", "devices", "firmware",
          "editor", "simulator", "qt/desktop", "qt/windows"},
         {qtHeader, descriptorHeader},
         false},
    };
    return table;
}

const Room* findRoom(const std::string& name) {
    const auto room = std::ranges::find(rooms(), name, &Room::name);
    return room == rooms().end() ? nullptr : &*room;
}

const Room* roomOf(const fs::path& file) {
    for (fs::path folder = file.parent_path(); !folder.empty(); folder = folder.parent_path()) {
        if (const Room* room = findRoom(folder.generic_string())) {
            return room;
        }
    }
    return nullptr;
}

std::vector<std::string> layeringOffences(const fs::path& src) {
    std::vector<std::string> offences;
    for (const Include& include : includesUnder(src)) {
        const Room* room = roomOf(include.file);
        const std::string wrong =
            room == nullptr ? "the file stands in no room that is known" : offence(*room, include);
        if (!wrong.empty()) {
            offences.push_back(at(include) + wrong);
        }
    }
    return offences;
}

std::vector<std::string> unusedArrows(const fs::path& src) {
    std::set<std::pair<std::string, std::string>> used;
    for (const Include& include : includesUnder(src)) {
        const Room* from = roomOf(include.file);
        const Room* to = include.angled ? nullptr : roomOf(include.target);
        if (from != nullptr && to != nullptr) {
            used.emplace(from->name, to->name);
        }
    }
    std::vector<std::string> unused;
    for (const Room& room : rooms()) {
        for (const std::string& name : room.uses) {
            if (!used.contains({room.name, name})) {
                unused.push_back(room.name + ": " + name);
            }
        }
    }
    return unused;
}

std::vector<fs::path> filesThatKnowTheArchive(const fs::path& src) {
    std::vector<fs::path> files;
    for (const Include& include : includesUnder(src)) {
        if (std::regex_match(include.target, std::regex(archiveHeader))) {
            files.push_back(include.file);
        }
    }
    files.erase(std::unique(files.begin(), files.end()), files.end());
    return files;
}

}  // namespace architecture
