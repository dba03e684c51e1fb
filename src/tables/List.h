#pragma once

#include <span>
#include <string_view>

namespace tables {

/// A fixed, ordered list of texts that lives as long as the program. It is handed out by
/// reference: asking for a list neither copies nor allocates, and every call gives the same one.
using List = std::span<const std::string_view>;

}  // namespace tables
