#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "rescue/HeldCopy.h"
#include "rescue/Work.h"
#include "rescue/leftovers.h"

namespace rescue {

/// Sees to it that there is a copy on disk while there is work to lose, and none otherwise. It has
/// no clock: its owner says what time it is, and comes back when something is `due`. Nothing is due
/// while all that could be done is done, unsaved work or not.
///
/// Nothing is written while a transfer goes on. What cannot be written is told once, in a line for
/// the person, and tried again with the next change.
class Keeper {
public:
    using Time = std::chrono::steady_clock::time_point;

    /// The most that a kill can lose, with as much again left for a timer that comes late and a
    /// disk that is slow.
    static constexpr std::chrono::milliseconds patience{1000};

    /// Without a folder nothing is kept, and that is told when there is something to keep.
    explicit Keeper(std::optional<std::filesystem::path> folder) : folder_(std::move(folder)) {}

    /// What the configuration is, after everything that may have changed it. `isOnFile`: all of it
    /// can be loaded or comes with every start, the person's own assignments behind a DAW mode too.
    void configurationIs(const Work& work, bool isOnFile, Time now);

    /// When `timePassed` is to be called; none while there is nothing to do.
    [[nodiscard]] std::optional<Time> due() const;

    /// Does what is due. Returns the line to show, empty where there is nothing to tell.
    [[nodiscard]] std::string timePassed(Time now);

    /// Does now what would be due later, before something that is not to be disturbed. What fails
    /// is due again at once, so that it is told afterwards.
    void keepNow(Time now);

    // A Send or a firmware upload. What became due meanwhile is due when it has ended.
    void transferBegins() { ++transfers_; }
    void transferEnds() { --transfers_; }

    /// The last word: what is left to do is done now.
    void end();

    // What editors that are no longer there have left.

    /// None but what other editors have left, and this one has not brought back.
    [[nodiscard]] Findings look() const;

    /// Takes such a copy, so that no other editor does: it stays on disk until it is discarded, and
    /// is not offered again while this editor lives. None where it is there no longer or another
    /// editor has it. Once brought back it can be had again.
    [[nodiscard]] std::optional<Work> bringBack(const std::string& stem);

    /// Removes such a copy, brought back or not: a person wants it no longer, or has saved it.
    /// False where it is there no longer or another editor has it.
    bool discard(const std::string& stem);

private:
    struct Taken {
        HeldCopy copy;
        Work work;
    };

    /// Whether there is work to lose that no copy taken from another editor holds.
    [[nodiscard]] bool needsOwnCopy() const;
    [[nodiscard]] bool isSettled() const;
    [[nodiscard]] std::string settle();
    [[nodiscard]] files::ReplaceResult write(const Work& work);
    void removeOwn();

    std::optional<std::filesystem::path> folder_;
    std::optional<Work> unsaved_;
    std::optional<Time> due_;
    int transfers_ = 0;
    std::string toldFailure_;
    std::optional<HeldCopy> own_;
    std::optional<Work> written_;  // what lies in `own_`
    std::map<std::string, Taken> taken_;
};

}  // namespace rescue
