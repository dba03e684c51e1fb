#include "fuzz/Corpus.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace fuzz {

namespace fs = std::filesystem;

std::vector<Sample> samplesBelow(const fs::path& folder) {
    std::vector<Sample> samples;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            std::ifstream stream(entry.path(), std::ios::binary);
            samples.push_back({entry.path().lexically_relative(folder).generic_string(),
                               {std::istreambuf_iterator<char>(stream), {}}});
        }
    }
    std::sort(samples.begin(), samples.end(),
              [](const Sample& one, const Sample& other) { return one.path < other.path; });
    return samples;
}

}  // namespace fuzz
