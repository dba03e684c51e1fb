#include "rescue/HeldCopy.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <limits>
#include <tuple>

#include "config/presetText.h"
#include "files/privateFolder.h"
#include "rescue/readCopy.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;

void removeFile(const fs::path& file) {
    std::error_code error;
    if (fs::symlink_status(file, error).type() == fs::file_type::regular) {
        fs::remove(file, error);
    }
}

files::ReplaceResult writePreset(const fs::path& file, const config::PresetBytes& bytes) {
    config::Image image{};
    std::copy(bytes.begin(), bytes.end(), image.begin());
    return files::replacePrivateFile(file, config::presetText(image));
}

}  // namespace

std::vector<CopyName> namesIn(const fs::path& folder, std::error_code& error) {
    std::vector<CopyName> names;
    for (auto entry = fs::directory_iterator(folder, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (auto name = parsedName(entry->path().filename().string())) {
            names.push_back(std::move(*name));
        }
    }
    return names;
}

std::vector<std::uint64_t> numbersOf(const std::string& stem, const std::vector<CopyName>& names) {
    std::vector<std::uint64_t> numbers;
    for (const CopyName& name : names) {
        if (name.stem == stem && name.part == Part::Shown) {
            numbers.push_back(name.number);
        }
    }
    std::sort(numbers.begin(), numbers.end(), std::greater<>());
    return numbers;
}

std::optional<HeldCopy> HeldCopy::begin(const fs::path& folder) {
    constexpr int mostTries = 20;
    for (int tries = 0; tries < mostTries; ++tries) {
        if (!files::makePrivateFolder(folder)) {
            return std::nullopt;
        }
        std::string stem = newStem();
        if (auto lock = files::FileLock::tryToMake(folder / fileName({stem, Part::Lock, 0}))) {
            return HeldCopy(folder, std::move(stem), std::move(*lock));
        }
        // The stem is taken, an editor that looks around was quicker, or one that ended has just
        // removed the folder.
        if (errno != EEXIST && errno != EWOULDBLOCK && errno != ENOENT) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<HeldCopy> HeldCopy::take(const fs::path& folder, const std::string& stem) {
    const fs::path path = folder / fileName({stem, Part::Lock, 0});
    auto lock = files::FileLock::tryToLock(path, files::FileLock::Kind::Exclusive);
    if (!lock && errno == ENOENT) {
        lock = files::FileLock::tryToMake(path);
    }
    if (!lock) {
        return std::nullopt;
    }
    return HeldCopy(folder, stem, std::move(*lock));
}

files::ReplaceResult HeldCopy::write(const Work& work) {
    const std::uint64_t number = number_ + 1;
    files::ReplaceResult result = writePreset(file(Part::UserDefined, number), work.userDefined);
    if (result.replaced) {
        result = writePreset(file(Part::Shown, number), work.shown);
    }
    if (!result.replaced) {
        removeFile(file(Part::UserDefined, number));
        return result;
    }
    removeUpTo(number_);
    number_ = number;
    return result;
}

std::optional<Work> HeldCopy::read() {
    std::error_code error;
    std::vector<LeftAlone> leftAlone;
    const std::optional<WholeCopy> copy =
        newestWholeCopy(folder_, stem_, numbersOf(stem_, namesIn(folder_, error)), leftAlone);
    if (!copy) {
        return std::nullopt;
    }
    number_ = copy->number;
    return copy->work;
}

void HeldCopy::removeUpTo(std::uint64_t number) const {
    std::error_code error;
    std::vector<CopyName> names = namesIn(folder_, error);
    // What is shown goes first: without its other half it would be a copy that is not whole. And
    // the oldest goes first, so that none comes to light again.
    std::sort(names.begin(), names.end(), [](const CopyName& a, const CopyName& b) {
        return std::tie(a.part, a.number) < std::tie(b.part, b.number);
    });
    for (const CopyName& name : names) {
        if (name.stem == stem_ && name.part != Part::Lock && name.number <= number) {
            removeFile(folder_ / fileName(name));
        }
    }
}

void HeldCopy::discard(HeldCopy copy) {
    copy.removeUpTo(copy.number_);
    removeFile(copy.folder_ / fileName({copy.stem_, Part::Lock, 0}));
    std::error_code error;
    if (fs::symlink_status(copy.folder_, error).type() == fs::file_type::directory) {
        fs::remove(copy.folder_, error);  // which fails while something is in it
    }
}

void HeldCopy::discardHalves(HeldCopy copy) {
    std::error_code error;
    // Looked up anew: its editor may have come to its end a moment ago.
    if (numbersOf(copy.stem_, namesIn(copy.folder_, error)).empty() && !error) {
        copy.number_ = std::numeric_limits<std::uint64_t>::max();
        discard(std::move(copy));
    }
}

}  // namespace rescue
