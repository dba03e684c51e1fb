#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/FileLock.h"
#include "files/replaceFile.h"
#include "rescue/Work.h"
#include "rescue/copyNames.h"

namespace rescue {

/// What is in the folder of all copies. What is no part of a copy is left out.
[[nodiscard]] std::vector<CopyName> namesIn(const std::filesystem::path& folder,
                                            std::error_code& error);

/// The numbers of a stem's copies, the newest first.
[[nodiscard]] std::vector<std::uint64_t> numbersOf(const std::string& stem,
                                                   const std::vector<CopyName>& names);

/// A copy that no other editor touches for as long as this object is there: the one an editor
/// writes, or one that a dead editor has left and this one has taken. It stays on disk when the
/// object goes.
class HeldCopy {
public:
    /// A copy to be written; makes the folder if need be. None where that fails; the reason is left
    /// in `errno`.
    [[nodiscard]] static std::optional<HeldCopy> begin(const std::filesystem::path& folder);

    /// What a dead editor has left with this stem; none while another editor has it.
    [[nodiscard]] static std::optional<HeldCopy> take(const std::filesystem::path& folder,
                                                      const std::string& stem);

    [[nodiscard]] const std::string& stem() const { return stem_; }
    /// Whether the lock's file is there still. It may have been removed, with the folder perhaps.
    [[nodiscard]] bool isInPlace() const { return lock_.isInPlace(); }

    /// Writes the copy anew. At every moment there is a whole one on disk, the old or the new.
    [[nodiscard]] files::ReplaceResult write(const Work& work);

    /// The newest that is whole.
    [[nodiscard]] std::optional<Work> read();

    /// Removes what was written or read, and what is older; what is newer and could not be read
    /// stays. The folder goes with the last file. The copy is held no longer.
    static void discard(HeldCopy copy);

    /// Removes what is left of a copy of which the decisive half is not there.
    static void discardHalves(HeldCopy copy);

private:
    HeldCopy(std::filesystem::path folder, std::string stem, files::FileLock lock)
        : folder_(std::move(folder)), stem_(std::move(stem)), lock_(std::move(lock)) {}

    [[nodiscard]] std::filesystem::path file(Part part, std::uint64_t number) const {
        return folder_ / fileName({stem_, part, number});
    }
    void removeUpTo(std::uint64_t number) const;

    std::filesystem::path folder_;
    std::string stem_;
    files::FileLock lock_;
    std::uint64_t number_ = 0;  // of the newest that is whole; 0 is none
};

}  // namespace rescue
