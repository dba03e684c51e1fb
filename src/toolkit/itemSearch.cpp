#include "toolkit/itemSearch.h"

#include <algorithm>
#include <charconv>

#include "texts/asciiCase.h"

namespace toolkit {

namespace {

bool isWordLetter(char letter) {
    const char low = texts::lowerCase(letter);
    return (low >= 'a' && low <= 'z') || (letter >= '0' && letter <= '9');
}

bool hasWordStartingWith(std::string_view text, std::string_view typed) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (!isWordLetter(text[i - 1]) && texts::beginsWithIgnoringCase(text.substr(i), typed)) {
            return true;
        }
    }
    return false;
}

int positionNamed(const ComboBox& box, std::string_view typed) {
    int position = -1;
    const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), position);
    const bool whole = error == std::errc() && end == typed.data() + typed.size();
    const auto item = box.itemObjectValueAtIndex(position);
    return whole && item && !isBlankEntry(*item) ? position : -1;
}

template <typename Fits>
int firstThat(const ComboBox& box, int from, Fits fits) {
    const int count = box.numberOfItems();
    for (int step = 0; step < count; ++step) {
        const int position = (std::max(from, 0) + step) % count;
        if (fits(*box.itemObjectValueAtIndex(position))) {
            return position;
        }
    }
    return -1;
}

}  // namespace

int findItem(const ComboBox& box, std::string_view typed, int from) {
    if (typed.empty()) {
        return -1;
    }
    int found = firstThat(box, from, [&](std::string_view item) {
        return texts::beginsWithIgnoringCase(item, typed);
    });
    if (found < 0) {
        found = firstThat(box, from,
                          [&](std::string_view item) { return hasWordStartingWith(item, typed); });
    }
    return found >= 0 ? found : positionNamed(box, typed);
}

}  // namespace toolkit
