#pragma once

// Unsaved work is kept here, so that neither a crash nor a close box loses it: a copy of the
// configuration for each editor that has something to lose, in a folder of the person's own. It is
// offered at a later start, and only offered. Nothing is read or made here that says how the
// program starts, and nothing at all while there is nothing to lose.
//
//     rescue::Keeper keeper(rescue::place());
//     keeper.configurationIs(rescue::workOf(sysData, stores), isOnFile, now);   // after every step
//     keeper.timePassed(now);                                                   // at keeper.due()

#include <filesystem>
#include <optional>

namespace rescue {

/// The folder of all copies: "tormelk-wyro" in the one that the environment names for what programs
/// keep (XDG_STATE_HOME), or else in ".local/state" of the home folder. Paths that do not begin at
/// the root count as none. None where there is no home folder either.
[[nodiscard]] std::optional<std::filesystem::path> place(const char* stateHome, const char* home);

/// By the environment of this process.
[[nodiscard]] std::optional<std::filesystem::path> place();

}  // namespace rescue
