#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace fuzz {

/// A file of the corpus.
struct Sample {
    std::string path;   ///< below the corpus, with the folder that says what is wrong with it
    std::string bytes;  ///< all of it
};

/// All files below a folder of the corpus, in alphabetical order.
[[nodiscard]] std::vector<Sample> samplesBelow(const std::filesystem::path& folder);

}  // namespace fuzz
