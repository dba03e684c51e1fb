#pragma once

#include <span>
#include <string_view>

namespace texts {

/// A fixed, ordered list of texts that lives as long as the program. It is handed on and kept by
/// reference: asking for a list, or filling a box with it, neither copies nor allocates.
using List = std::span<const std::string_view>;

}  // namespace texts
