#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "midi/archive/keyedArchive.h"

namespace midi::archive {

/// Has damaged copies of an archive read, the same ones in every run: none may do any harm.
inline void readGarbledCopies(const std::vector<std::uint8_t>& whole, KeyedUnarchiver unarchiver) {
    constexpr int copies = 20'000;
    std::mt19937 random(20240229);
    const auto below = [&](std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
    };
    int accepted = 0;
    for (int copy = 0; copy < copies; ++copy) {
        std::vector<std::uint8_t> bytes = whole;
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            switch (below(3)) {
                case 0:
                    bytes[below(bytes.size())] = static_cast<std::uint8_t>(below(256));
                    break;
                case 1:
                    bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size())));
                    break;
                default:
                    bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size())),
                                 static_cast<std::uint8_t>(below(256)));
            }
        }
        if (const auto objects = unarchiver.unarchiveList(bytes)) {
            ++accepted;
            EXPECT_LE(objects->size(), bytes.size());
        }
    }
    // Some changes only touch a name or a number, so both answers must have been given.
    EXPECT_GT(accepted, 0);
    EXPECT_LT(accepted, copies);
}

}  // namespace midi::archive
