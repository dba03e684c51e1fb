// Random walks through the editor with undo and redo in between. How many actions each takes can be
// set from outside: UNDO_WALK_ACTIONS=50000 for a million in all.

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "editor/UndoWalk.h"

namespace editor {
namespace {

std::size_t actionsOfAWalk() {
    constexpr std::size_t usual = 2'000;
    const char* asked = std::getenv("UNDO_WALK_ACTIONS");
    return asked == nullptr ? usual : std::strtoul(asked, nullptr, 10);
}

class UndoWalks : public testing::TestWithParam<unsigned> {};

TEST_P(UndoWalks, BringBackWhatWasAndEqualTheRemainingActions) {
    constexpr std::size_t actionsOfAPerson = 2'000;  // then another one begins
    constexpr std::size_t betweenReplays = 700;
    const std::size_t actions = actionsOfAWalk();
    std::size_t undone = 0;
    std::size_t redone = 0;
    std::size_t replayed = 0;
    for (std::size_t begun = 0; begun < actions; begun += actionsOfAPerson) {
        UndoWalk walk(GetParam() * std::size_t{1'000'000} + begun);
        while (walk.actions() < std::min(actionsOfAPerson, actions - begun)) {
            walk.step();
            ASSERT_EQ(walk.problem(), "") << "begun " << begun << ", action " << walk.actions();
            if (walk.actions() % betweenReplays == 0) {
                walk.replay();
                ASSERT_EQ(walk.problem(), "") << "begun " << begun << ", action " << walk.actions();
            }
        }
        walk.downAndUp();
        ASSERT_EQ(walk.problem(), "") << "begun " << begun << ", down and up";
        undone += walk.undone();
        redone += walk.redone();
        replayed += walk.replayed();
    }
    if (actions > actionsOfAPerson) {
        std::cout << actions << " actions, " << undone << " undone, " << redone << " done again, "
                  << replayed << " repeated in a fresh editor\n";
    }
    EXPECT_GT(undone, actions / 50);
    EXPECT_GT(redone, actions / 50);
    EXPECT_GT(replayed, actions / 50);
}

INSTANTIATE_TEST_SUITE_P(FixedSeeds, UndoWalks, testing::Range(1U, 21U));

}  // namespace
}  // namespace editor
