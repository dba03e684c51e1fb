#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace fuzz {

/// How many damaged inputs a test feeds, and from which seed on. The environment may ask for more:
/// TORMELK_FUZZ_INPUTS is the number of inputs, TORMELK_FUZZ_SEED any number.
struct Amount {
    std::uint64_t inputs = 0;
    std::uint64_t seed = 0;
};
[[nodiscard]] Amount amount(std::uint64_t inputs);

/// Into so many tests the inputs of a reader are divided, which can run beside each other.
inline constexpr std::uint64_t parts = 4;

/// Makes damaged inputs out of sound and hostile ones: bytes changed, taken out, put in, doubled,
/// moved, cut off, words of the format's own put in, two inputs joined. The same seed makes the
/// same inputs on every machine.
class Mutator {
public:
    /// `samples` are what it starts from, `words` what the format is made of. Neither is empty.
    Mutator(std::vector<std::string> samples, std::vector<std::string> words, std::uint64_t seed);

    [[nodiscard]] std::string next();

private:
    std::size_t below(std::size_t end);
    void damage(std::string& text);

    std::vector<std::string> samples_;
    std::vector<std::string> words_;
    std::mt19937_64 random_;
};

}  // namespace fuzz
