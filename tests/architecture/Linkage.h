#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace architecture {

/// The shared libraries a program asks the loader for by itself ("libstdc++.so.6"). Empty if the
/// file is not a program.
[[nodiscard]] std::vector<std::string> neededLibraries(const std::filesystem::path& program);

/// Those of the libraries that no core room may bring along: the window toolkit's, the system's
/// MIDI and the display's.
[[nodiscard]] std::vector<std::string> forbiddenLibraries(
    const std::vector<std::string>& libraries);

/// What is wrong with a link line "room: library;library": libraries that are neither rooms which
/// the room may use nor allowed to it from outside.
[[nodiscard]] std::vector<std::string> linkOffences(const std::string& linkLine);

}  // namespace architecture
