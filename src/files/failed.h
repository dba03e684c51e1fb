#pragma once

#include <system_error>

#include "files/replaceFile.h"

namespace files {

/// A failure with the system's word for this `errno` as its reason.
[[nodiscard]] inline ReplaceResult failed(int error) {
    return {false, std::generic_category().message(error)};
}

}  // namespace files
