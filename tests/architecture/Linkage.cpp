#include "architecture/Linkage.h"

#include <algorithm>
#include <regex>
#include <sstream>

#include "architecture/Commands.h"
#include "architecture/Layering.h"

namespace architecture {

namespace {

bool mayLink(const Room& room, const std::string& target) {
    static const std::regex warnings("tormelk-warnings");
    static const std::regex windows("Qt6::.*");
    static const std::regex archive("nlohmann_json::.*");
    static const std::regex sequencer("ALSA::ALSA|Threads::Threads");
    if (target == room.name || std::ranges::count(room.uses, target) > 0) {
        return true;
    }
    return std::regex_match(target, warnings) ||
           (!room.core && std::regex_match(target, windows)) ||
           (room.name == "midi/archive" && std::regex_match(target, archive)) ||
           (room.name == "platform/alsa" && std::regex_match(target, sequencer));
}

}  // namespace

std::vector<std::string> neededLibraries(const std::filesystem::path& program) {
    static const std::regex entry(R"(\(NEEDED\).*\[(.*)\])");
    std::vector<std::string> libraries;
    for (const std::string& line :
         run("LC_ALL=C readelf --dynamic --wide " + quoted(program.string())).lines) {
        std::smatch parts;
        if (std::regex_search(line, parts, entry)) {
            libraries.push_back(parts[1].str());
        }
    }
    return libraries;
}

std::vector<std::string> forbiddenLibraries(const std::vector<std::string>& libraries) {
    static const std::regex forbidden("lib(Qt|asound|X11|xcb|wayland|GL|OpenGL|EGL).*");
    std::vector<std::string> found;
    std::ranges::copy_if(libraries, std::back_inserter(found), [](const std::string& library) {
        return std::regex_match(library, forbidden);
    });
    return found;
}

std::vector<std::string> linkOffences(const std::string& linkLine) {
    const std::size_t colon = linkLine.find(": ");
    const Room* room = findRoom(linkLine.substr(0, colon));
    if (room == nullptr || colon == std::string::npos) {
        return {"\"" + linkLine + "\" is the link line of no room"};
    }
    std::vector<std::string> offences;
    std::istringstream libraries(linkLine.substr(colon + 2));
    for (std::string library; std::getline(libraries, library, ';');) {
        if (!library.empty() && !mayLink(*room, library)) {
            offences.push_back(room->name + " may not link " + library);
        }
    }
    return offences;
}

}  // namespace architecture
