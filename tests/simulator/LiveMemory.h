#pragma once

#include <cstddef>

namespace simulator {

/// Bytes that this test program holds by `new` right now.
std::size_t liveMemory();

}  // namespace simulator
