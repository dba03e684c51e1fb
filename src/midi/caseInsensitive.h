#pragma once

#include <compare>
#include <string_view>

namespace midi {

// Comparing UTF-8 texts with upper and lower case being equal, in every script that has the two.
// Bytes that are no UTF-8 stand for themselves.

[[nodiscard]] std::weak_ordering compareIgnoringCase(std::string_view a, std::string_view b);

/// Whether the first characters of `text`, as many as `prefix` has, equal it. A text that is
/// shorter than the prefix does not.
[[nodiscard]] bool startsWithIgnoringCase(std::string_view text, std::string_view prefix);

}  // namespace midi
