#pragma once

// Compares a list with the texts it must hold, item by item and character by character.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "texts/List.h"

namespace tables {

inline void expectTexts(texts::List actual, texts::List expected) {
    EXPECT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < std::min(actual.size(), expected.size()); ++i) {
        EXPECT_EQ(actual[i], expected[i]) << "item " << i;
    }
}

}  // namespace tables
