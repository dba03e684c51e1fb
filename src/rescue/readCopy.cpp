#include "rescue/readCopy.h"

#include <algorithm>
#include <variant>

#include "config/factoryTables.h"
#include "files/readFile.h"
#include "rescue/copyNames.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;

struct Gone {};
using Reading = std::variant<config::PresetBytes, Obstacle, Gone>;

config::Image beginningOfEveryImage() {
    config::Image image{};
    std::copy(config::SysBuf_init.begin(), config::SysBuf_init.end(), image.begin());
    return image;
}

Reading readRegularFile(const fs::path& file) {
    const files::ReadResult result =
        files::readFile(file, config::presetTextLimit, files::Access::Read);
    using Status = files::ReadResult::Status;
    if (result.status != Status::Read) {
        return result.status == Status::NotRegular ? Obstacle::NoFile : Obstacle::Unreadable;
    }
    if (result.size > config::presetTextLimit) {
        return Obstacle::TooLong;
    }
    if (result.size != result.bytes.size()) {
        return Obstacle::BeingWritten;
    }
    const std::optional<config::PresetBytes> bytes = config::readPresetText(result.bytes);
    if (!bytes || !config::hasPresetHeader(*bytes, beginningOfEveryImage())) {
        return Obstacle::Damaged;
    }
    return *bytes;
}

Reading read(const fs::path& file) {
    std::error_code error;
    // Looked at without following links: what lies elsewhere is not this program's.
    switch (fs::symlink_status(file, error).type()) {
        case fs::file_type::regular:
            return readRegularFile(file);
        case fs::file_type::not_found:
            return Gone();
        case fs::file_type::directory:
            return Obstacle::Folder;
        case fs::file_type::symlink:
            return Obstacle::Link;
        case fs::file_type::none:
        case fs::file_type::unknown:
            return Obstacle::Unreadable;
        default:
            return Obstacle::NoFile;
    }
}

}  // namespace

std::optional<WholeCopy> newestWholeCopy(const fs::path& folder, const std::string& stem,
                                         const std::vector<std::uint64_t>& numbers,
                                         std::vector<LeftAlone>& leftAlone) {
    for (const std::uint64_t number : numbers) {
        const std::string shownName = fileName({stem, Part::Shown, number});
        const Reading shown = read(folder / shownName);
        if (const auto* obstacle = std::get_if<Obstacle>(&shown)) {
            leftAlone.push_back({shownName, *obstacle});
        }
        if (!std::holds_alternative<config::PresetBytes>(shown)) {
            continue;
        }
        const std::string userDefinedName = fileName({stem, Part::UserDefined, number});
        const Reading userDefined = read(folder / userDefinedName);
        if (const auto* bytes = std::get_if<config::PresetBytes>(&userDefined)) {
            return WholeCopy{number, {std::get<config::PresetBytes>(shown), *bytes}};
        }
        if (const auto* obstacle = std::get_if<Obstacle>(&userDefined)) {
            leftAlone.push_back({userDefinedName, *obstacle});
        } else {
            leftAlone.push_back({shownName, Obstacle::Incomplete});
        }
    }
    return std::nullopt;
}

}  // namespace rescue
