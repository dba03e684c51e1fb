#pragma once

// Comparing English texts without their case. Bytes beyond ASCII are left alone, so that UTF-8
// stays what it is.

#include <algorithm>
#include <string_view>

namespace texts {

[[nodiscard]] constexpr char lowerCase(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Whether the text begins with these letters, capital or not.
[[nodiscard]] constexpr bool beginsWithIgnoringCase(std::string_view text,
                                                    std::string_view letters) {
    return text.size() >= letters.size() &&
           std::equal(letters.begin(), letters.end(), text.begin(),
                      [](char a, char b) { return lowerCase(a) == lowerCase(b); });
}

}  // namespace texts
