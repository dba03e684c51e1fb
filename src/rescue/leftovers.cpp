#include "rescue/leftovers.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <set>

#include "files/FileLock.h"
#include "rescue/HeldCopy.h"
#include "rescue/copyNames.h"

namespace rescue {
namespace {

namespace fs = std::filesystem;
using files::FileLock;

std::set<std::string> stemsOf(const std::vector<CopyName>& names) {
    std::set<std::string> stems;
    for (const CopyName& name : names) {
        stems.insert(name.stem);
    }
    return stems;
}

/// Adds what there is with this stem.
void look(const fs::path& folder, const std::string& stem,
          const std::vector<std::uint64_t>& numbers, Findings& findings) {
    // Shared, so that two editors that start at once see the same. One that writes is not looked
    // at.
    const auto lock =
        FileLock::tryToLock(folder / fileName({stem, Part::Lock, 0}), FileLock::Kind::Shared);
    if (!lock && errno != ENOENT) {
        const Obstacle why = errno == EWOULDBLOCK ? Obstacle::BeingWritten : Obstacle::Unreadable;
        findings.leftAlone.push_back({fileName({stem, Part::Shown, numbers.front()}), why});
        return;
    }
    auto copy = newestWholeCopy(folder, stem, numbers, findings.leftAlone);
    if (!copy) {
        return;
    }
    std::error_code error;
    const auto written =
        fs::last_write_time(folder / fileName({stem, Part::Shown, copy->number}), error);
    if (!error) {
        findings.leftovers.push_back(
            {stem,
             std::chrono::time_point_cast<std::chrono::system_clock::duration>(
                 fs::file_time_type::clock::to_sys(written)),
             copy->work});
    }
}

/// However many there are.
Findings everythingIn(const fs::path& folder) {
    Findings findings;
    std::error_code error;
    const std::vector<CopyName> names = namesIn(folder, error);
    // In a home that is missing, or somebody else's, there is none: that is told when something is
    // to be kept there.
    std::error_code unseen;
    if (error && fs::exists(folder, unseen)) {
        findings.leftAlone.push_back({folder.filename().string(), Obstacle::Unreadable});
    }
    for (const std::string& stem : stemsOf(names)) {
        const std::vector<std::uint64_t> numbers = numbersOf(stem, names);
        if (!numbers.empty()) {
            look(folder, stem, numbers, findings);
        }
    }
    std::stable_sort(findings.leftovers.begin(), findings.leftovers.end(),
                     [](const Leftover& a, const Leftover& b) { return a.written > b.written; });
    return findings;
}

/// Files without a copy: a lock, or the half that is written first.
void removeHalves(const fs::path& folder) {
    std::error_code error;
    const std::vector<CopyName> names = namesIn(folder, error);
    for (const std::string& stem : stemsOf(names)) {
        if (numbersOf(stem, names).empty()) {
            if (auto dead = HeldCopy::take(folder, stem)) {
                HeldCopy::discardHalves(std::move(*dead));
            }
        }
    }
}

/// What replacing a file leaves where it was killed. One that is an hour old nobody writes to.
void removeUnfinishedFiles(const fs::path& folder) {
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
    std::error_code error;
    for (auto entry = fs::directory_iterator(folder, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        if (entry->path().filename().string().starts_with(".unfinished-") &&
            entry->symlink_status(ignored).type() == fs::file_type::regular &&
            entry->last_write_time(ignored) < old) {
            fs::remove(entry->path(), ignored);
        }
    }
}

}  // namespace

Findings lookInto(const fs::path& folder) {
    Findings findings = everythingIn(folder);
    if (findings.leftovers.size() > mostLeftovers) {
        findings.leftovers.erase(findings.leftovers.begin() + mostLeftovers,
                                 findings.leftovers.end());
    }
    return findings;
}

void tidy(const fs::path& folder, std::size_t kept) {
    const Findings findings = everythingIn(folder);
    for (std::size_t i = kept; i < findings.leftovers.size(); ++i) {
        auto oldest = HeldCopy::take(folder, findings.leftovers[i].stem);
        if (oldest && oldest->read()) {
            HeldCopy::discard(std::move(*oldest));
        }
    }
    removeHalves(folder);
    removeUnfinishedFiles(folder);
}

}  // namespace rescue
