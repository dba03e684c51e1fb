#pragma once

#include <filesystem>

#include "firmware/FirmwareState.h"

namespace firmware {

/// A firmware file has fewer bytes than this.
inline constexpr std::uint64_t imageFileLimit = 0xE000;

enum class ReadOutcome {
    Accepted,
    CannotRead,  ///< it cannot be opened or read to its end; nothing has changed
    WrongName,   ///< it does not begin with "tormelk", in any mixture of cases
    TooLarge
};

/// Reads a file into the image buffer. What is in it is not judged. A file that is refused for its
/// name or its size counts as chosen nevertheless, and leaves the buffer alone; one that is too
/// large still sets `len`.
[[nodiscard]] ReadOutcome readImage(const std::filesystem::path& path, FirmwareState& state);

}  // namespace firmware
