#include "fuzz/Mutator.h"

#include <gtest/gtest.h>

#include <set>

namespace fuzz {
namespace {

const std::vector<std::string> someSamples{"240\n29\n3\n", "", "a longer one, not of numbers"};
const std::vector<std::string> someWords{"-", "65536", std::string("\0", 1)};

TEST(Mutator, MakesTheSameInputsFromTheSameSeed) {
    Mutator first(someSamples, someWords, 5);
    Mutator second(someSamples, someWords, 5);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(first.next(), second.next());
    }
}

TEST(Mutator, MakesOtherInputsFromAnotherSeed) {
    Mutator first(someSamples, someWords, 5);
    Mutator second(someSamples, someWords, 6);
    std::set<std::string> inputs;
    for (int i = 0; i < 1000; ++i) {
        inputs.insert(first.next());
        inputs.insert(second.next());
    }
    EXPECT_GT(inputs.size(), 1000U);
}

TEST(Mutator, KeepsInputsWithinAReasonableLength) {
    Mutator mutator(someSamples, someWords, 5);
    for (int i = 0; i < 10000; ++i) {
        ASSERT_LT(mutator.next().size(), 2000U);
    }
}

}  // namespace
}  // namespace fuzz
