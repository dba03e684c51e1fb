#pragma once

#include <cstddef>

// What a test program asks for by `new`. Linking the library `counted-memory` switches the counting
// on for the whole program.
namespace support {

/// How often memory was asked for so far.
std::size_t allocationCount();

/// Bytes held right now.
std::size_t liveMemory();

}  // namespace support
