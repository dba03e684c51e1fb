#pragma once

#include <gtest/gtest.h>

#include <string>
#include <system_error>

#include "files/replaceFile.h"

namespace files {

/// The system's word for an `errno`.
inline std::string wordFor(int error) {
    return std::generic_category().message(error);
}

inline void expectRefused(const ReplaceResult& result, const std::string& reason) {
    EXPECT_FALSE(result.replaced);
    EXPECT_EQ(result.reason, reason);
}

}  // namespace files
