#include "rescue/words.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <string_view>
#include <vector>

#include "config/buildImageAndStores.h"
#include "config/control.h"
#include "config/modes.h"
#include "describe/reports.h"

namespace rescue {
namespace {

using Time = std::chrono::system_clock::time_point;

constexpr std::array<const char*, 12> months = {"January",   "February", "March",    "April",
                                                "May",       "June",     "July",     "August",
                                                "September", "October",  "November", "December"};

std::tm onTheWall(Time time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm parts{};
    ::localtime_r(&seconds, &parts);
    return parts;
}

config::Image imageOf(const config::PresetBytes& bytes) {
    config::Image image{};
    std::copy(bytes.begin(), bytes.end(), image.begin());
    return image;
}

/// What a person sees in User Defined mode, and in the others.
struct Faces {
    config::Image userDefined;
    config::Image daw;
};

Faces facesOf(const config::Image& shown, const config::Stores& stores, int mode) {
    Faces faces{shown, shown};
    if (mode == config::userDefinedMode) {
        config::loadFactory(faces.daw, stores);
    } else {
        config::restoreUserDefined(faces.userDefined, stores);
    }
    return faces;
}

bool sendTheSame(const config::Image& a, const config::Image& b, int layer, int control) {
    return config::channel(a, layer, control) == config::channel(b, layer, control) &&
           config::number(a, layer, control) == config::number(b, layer, control) &&
           config::mode(a, layer, control) == config::mode(b, layer, control);
}

int assignmentsThatDiffer(const Faces& a, const Faces& b) {
    int count = 0;
    for (int layer = 0; layer < config::layerCount; ++layer) {
        for (int control = 0; control < config::buttonCount; ++control) {
            const bool same = sendTheSame(a.userDefined, b.userDefined, layer, control) &&
                              sendTheSame(a.daw, b.daw, layer, control);
            count += same ? 0 : 1;
        }
    }
    return count;
}

bool trailersDiffer(const config::Image& a, const config::Image& b, std::size_t offset) {
    for (int layer = 0; layer < config::layerCount; ++layer) {
        if (config::trailer(a, layer, offset) != config::trailer(b, layer, offset)) {
            return true;
        }
    }
    return false;
}

std::string_view reasonFor(Obstacle obstacle) {
    switch (obstacle) {
        case Obstacle::Damaged:
            return "damaged";
        case Obstacle::TooLong:
            return "too long";
        case Obstacle::Folder:
            return "a folder";
        case Obstacle::Link:
            return "a link";
        case Obstacle::NoFile:
            return "no file";
        case Obstacle::Unreadable:
            return "cannot be read";
        case Obstacle::BeingWritten:
            return "being written";
        case Obstacle::Incomplete:
            return "one half is missing";
    }
    return "";
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : ", ") + part;
    }
    return text;
}

}  // namespace

std::string whenWords(Time time, Time now) {
    const std::tm parts = onTheWall(time);
    std::string text =
        std::to_string(parts.tm_mday) + " " + months.at(static_cast<std::size_t>(parts.tm_mon));
    if (parts.tm_year != onTheWall(now).tm_year) {
        text += " " + std::to_string(parts.tm_year + 1900);
    }
    std::array<char, 32> clock{};
    std::snprintf(clock.data(), clock.size(), ", %02d:%02d", parts.tm_hour, parts.tm_min);
    return text + clock.data();
}

std::string differenceWords(const Work& work) {
    config::Image factory{};
    config::Stores factoryStores;
    config::buildImageAndStores(factory, factoryStores);
    config::Stores stores = factoryStores;
    giveBackUserDefined(work, stores);
    const config::Image shown = imageOf(work.shown);
    const int mode = config::trailer(shown, 0, config::dawModeOffset);

    std::vector<std::string> parts;
    if (mode != config::nuendoMode) {
        parts.push_back(describe::reportMode(mode, false));
    }
    if (const int count = assignmentsThatDiffer(
            facesOf(shown, stores, mode), facesOf(factory, factoryStores, config::nuendoMode))) {
        parts.push_back(std::to_string(count) + (count == 1 ? " assignment" : " assignments"));
    }
    if (trailersDiffer(shown, factory, config::curveOffset) ||
        trailersDiffer(shown, factory, config::intervalOffset)) {
        parts.emplace_back("pad settings");
    }
    if (trailersDiffer(shown, factory, config::lockOffset)) {
        parts.push_back(describe::reportLock(config::trailer(shown, 0, config::lockOffset) != 0));
    }
    return parts.empty() ? "as the factory has it" : joined(parts);
}

std::string menuWords(const Leftover& leftover, Time now) {
    return whenWords(leftover.written, now) + ": " + differenceWords(leftover.work);
}

std::string offerWords(const Findings& findings, Time now) {
    return findings.leftovers.empty()
               ? ""
               : "Unsaved work from " + whenWords(findings.leftovers.front().written, now) +
                     " can be brought back: File > Bring Back Unsaved Work";
}

std::string leftAloneWords(const Findings& findings, const std::filesystem::path& folder) {
    std::vector<std::string> files;
    files.reserve(findings.leftAlone.size());
    for (const LeftAlone& file : findings.leftAlone) {
        files.push_back(file.name + " (" + std::string(reasonFor(file.why)) + ")");
    }
    return files.empty() ? "" : "Left alone in " + folder.string() + ": " + joined(files);
}

}  // namespace rescue
