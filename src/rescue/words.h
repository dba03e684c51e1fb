#pragma once

// What a person is told of unsaved work, in the menu and in the line below the window.

#include <chrono>
#include <filesystem>
#include <string>

#include "rescue/leftovers.h"

namespace rescue {

/// "20 November, 21:14", by the clock on the wall; "20 November 2025, 21:14" in another year than
/// `now`.
[[nodiscard]] std::string whenWords(std::chrono::system_clock::time_point time,
                                    std::chrono::system_clock::time_point now);

/// What differs from the factory configuration: "DAW mode: User Defined, 12 assignments, pad
/// settings"; "as the factory has it" where nothing does. An assignment is what one control does in
/// one layer, shown or behind a DAW mode.
[[nodiscard]] std::string differenceWords(const Work& work);

/// For a menu: "20 November, 21:14: DAW mode: User Defined, 12 assignments".
[[nodiscard]] std::string menuWords(const Leftover& leftover,
                                    std::chrono::system_clock::time_point now);

/// At the start of the program, the newest standing for all: "Unsaved work from 20 November, 21:14
/// can be brought back: File > Bring Back Unsaved Work". Empty where there is none.
[[nodiscard]] std::string offerWords(const Findings& findings,
                                     std::chrono::system_clock::time_point now);

/// "Left alone in /home/...: unsaved-3f9a1c22-17.Tormelk (damaged)". Empty where there is nothing.
[[nodiscard]] std::string leftAloneWords(const Findings& findings,
                                         const std::filesystem::path& folder);

}  // namespace rescue
