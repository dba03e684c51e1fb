// Long random walks of a person through the editor. After every step it is checked what must hold
// whatever was done: the shape of the image, what a step may write, what the boxes and lights show.

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <sstream>

#include "editor/RandomWalk.h"

namespace editor {
namespace {

struct Seeds {
    std::uint64_t first;
    int count;
};

void PrintTo(const Seeds& seeds, std::ostream* out) {
    *out << "from seed " << seeds.first << " on";
}

constexpr int stepsOfAWalk = 200;

class RandomWalks : public testing::TestWithParam<Seeds> {
protected:
    static void walk(RandomWalk::PadEditorRuns runs) {
        for (int i = 0; i < GetParam().count; ++i) {
            const std::uint64_t seed = GetParam().first + static_cast<std::uint64_t>(i);
            RandomWalk walk(seed, runs);
            for (int step = 0; step < stepsOfAWalk; ++step) {
                walk.step();
                ASSERT_EQ(walk.problem(), "") << "seed " << seed << ", step " << step << "\n"
                                              << walk.history();
            }
        }
    }
};

TEST_P(RandomWalks, KeepImageBoxesAndLightsInOrder) {
    walk(RandomWalk::PadEditorRuns::AlwaysSucceed);
}

TEST_P(RandomWalks, KeepImageAndBoxesInOrderThoughThePadEditorCannotAlwaysBeShown) {
    walk(RandomWalk::PadEditorRuns::SometimesFail);
}

INSTANTIATE_TEST_SUITE_P(FixedSeeds, RandomWalks,
                         testing::Values(Seeds{1'000, 800}, Seeds{2'000, 800}, Seeds{3'000, 800},
                                         Seeds{4'000, 800}, Seeds{5'000, 800}, Seeds{6'000, 800},
                                         Seeds{7'000, 800}, Seeds{8'000, 800}));

}  // namespace
}  // namespace editor
