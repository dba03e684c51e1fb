#include "fuzz/Mutator.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace fuzz {
namespace {

std::uint64_t fromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? std::strtoull(value, nullptr, 10) : otherwise;
}

}  // namespace

Amount amount(std::uint64_t inputs) {
    return {fromEnvironment("TORMELK_FUZZ_INPUTS", inputs),
            fromEnvironment("TORMELK_FUZZ_SEED", 1)};
}

Mutator::Mutator(std::vector<std::string> samples, std::vector<std::string> words,
                 std::uint64_t seed)
    : samples_(std::move(samples)), words_(std::move(words)), random_(seed) {}

std::string Mutator::next() {
    std::string text = samples_[below(samples_.size())];
    // Mostly little damage: what is nearly right gets deepest into a reader.
    const std::size_t damages = std::size_t{1} << below(4);
    for (std::size_t i = 0; i < damages; ++i) {
        damage(text);
    }
    return text;
}

/// A number from 0 to `end` - 1; the standard distributions differ between libraries.
std::size_t Mutator::below(std::size_t end) {
    return static_cast<std::size_t>(random_() % end);
}

void Mutator::damage(std::string& text) {
    constexpr std::size_t longest = 40;
    const std::size_t place = below(text.size() + 1);
    const std::size_t length = std::min(text.size() - place, 1 + below(longest));
    const std::string& word = words_[below(words_.size())];
    switch (below(10)) {
        case 0:
            text.insert(place, word);
            break;
        case 1:
            text.replace(place, std::min(length, word.size()), word);
            break;
        case 2:
            text.erase(place, length);
            break;
        case 3:
            text.insert(place, 1, static_cast<char>(random_()));
            break;
        case 4:
            if (place < text.size()) {
                text[place] = static_cast<char>(random_());
            }
            break;
        case 5:
            if (place < text.size()) {
                text[place] = static_cast<char>(text[place] ^ (1 << below(8)));
            }
            break;
        case 6:
            text.insert(below(text.size() + 1), text.substr(place, length));
            break;
        case 7:
            text.insert(place, 1 + below(longest), word.empty() ? '\0' : word.front());
            break;
        case 8:
            text.resize(std::max(place, text.size() - below(text.size() / 8 + 1)));
            break;
        default: {
            const std::string& other = samples_[below(samples_.size())];
            const std::size_t from = below(other.size() + 1);
            text.replace(place, below(text.size() - place + 1), other, from,
                         below(other.size() - from + 1));
        }
    }
}

}  // namespace fuzz
