#include "editor/History.h"

#include <gtest/gtest.h>

#include <string>

namespace editor {
namespace {

/// What is worked on, and what is only looked at.
struct Page {
    int work = 0;
    int place = 0;

    bool operator==(const Page&) const = default;
};

bool sameWork(const Page& one, const Page& other) {
    return one.work == other.work;
}

class HistoryOfAPage : public testing::Test {
protected:
    void act(Page now, const Choice& choice = {}) {
        history.actionEnded(
            now, [now] { return std::to_string(now.work); }, choice);
    }
    void choose(int index, const toolkit::ComboBox& in) { act({index, 0}, {&in, index}); }

    History<Page> history{Page{}};
    toolkit::ComboBox box;
    toolkit::ComboBox otherBox;
};

TEST_F(HistoryOfAPage, HasNothingToUndoAtTheStart) {
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.undoName(), "");
    EXPECT_EQ(history.redoName(), "");
}

TEST_F(HistoryOfAPage, GoesBackToWhereTheChangeWasMade) {
    act({1, 10});
    act({1, 20});  // only looked elsewhere
    act({2, 20});
    act({2, 30});
    EXPECT_EQ(history.numberOfSteps(), 2U);
    EXPECT_EQ(history.undoName(), "2");
    EXPECT_EQ(history.undo(), (Page{1, 20}));
    EXPECT_EQ(history.undoName(), "1");
    EXPECT_EQ(history.redoName(), "2");
    EXPECT_EQ(history.undo(), (Page{0, 0}));
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(history.redo(), (Page{1, 10}));
    EXPECT_EQ(history.redo(), (Page{2, 20}));
    EXPECT_FALSE(history.canRedo());
}

TEST_F(HistoryOfAPage, KeepsWhatWasUndoneWhileNothingIsChanged) {
    act({1, 0});
    act({2, 0});
    history.undo();
    history.goOnFrom({1, 0});
    act({1, 40});
    ASSERT_TRUE(history.canRedo());
    EXPECT_EQ(history.redo(), (Page{2, 0}));
}

TEST_F(HistoryOfAPage, DropsWhatWasUndoneWithTheNextStep) {
    act({1, 0});
    act({1, 5});
    act({2, 5});
    act({3, 5});
    history.undo();
    history.undo();
    act({1, 7});
    act({9, 7});
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.numberOfSteps(), 2U);
    EXPECT_EQ(history.undo(), (Page{1, 7}));
    EXPECT_EQ(history.undo(), (Page{0, 0}));
    EXPECT_EQ(history.redo(), (Page{1, 0}));
    EXPECT_EQ(history.redo(), (Page{9, 7}));
}

TEST_F(HistoryOfAPage, CountsGoingThroughAListAsOneStep) {
    for (int index = 1; index <= 30; ++index) {
        choose(index, box);
    }
    choose(29, box);
    EXPECT_EQ(history.numberOfSteps(), 1U);
    EXPECT_EQ(history.undoName(), "29");
    EXPECT_EQ(history.undo(), (Page{0, 0}));
    EXPECT_EQ(history.redo(), (Page{29, 0}));
}

TEST_F(HistoryOfAPage, CountsPicksApartFromEachOther) {
    choose(1, box);
    choose(3, box);
    EXPECT_EQ(history.numberOfSteps(), 2U) << "not the next entry";
    choose(4, otherBox);
    EXPECT_EQ(history.numberOfSteps(), 3U) << "another box";
    act({4, 1});
    choose(5, otherBox);
    EXPECT_EQ(history.numberOfSteps(), 4U) << "something was selected in between";
    history.undo();
    choose(6, otherBox);
    EXPECT_EQ(history.numberOfSteps(), 4U);
    EXPECT_EQ(history.undo(), (Page{4, 1})) << "an undo in between";
}

TEST_F(HistoryOfAPage, PassesAnEntryThatChangesNothing) {
    choose(1, box);
    act({1, 0}, {&box, 2});
    act({3, 0}, {&box, 3});
    EXPECT_EQ(history.numberOfSteps(), 1U);
    EXPECT_EQ(history.undo(), (Page{0, 0}));
}

TEST_F(HistoryOfAPage, HasNoStepForGoingThroughAListAndBack) {
    choose(7, otherBox);
    choose(8, box);
    choose(7, box);
    EXPECT_EQ(history.numberOfSteps(), 1U);
    choose(6, box);
    EXPECT_EQ(history.numberOfSteps(), 2U);
    EXPECT_EQ(history.undo(), (Page{7, 0}));
}

TEST_F(HistoryOfAPage, LetsTheOldestGoAtItsLimit) {
    History<Page> small(Page{}, 1'000);
    for (int work = 1; work <= 100; ++work) {
        small.actionEnded({work, 0}, [] { return "a step"; });
        EXPECT_LE(small.memory(), 1'000U);
    }
    ASSERT_GT(small.numberOfSteps(), 2U);
    const auto left = static_cast<int>(small.numberOfSteps());
    Page page;
    while (small.canUndo()) {
        page = small.undo();
    }
    EXPECT_EQ(page, (Page{100 - left, 0}));
    while (small.canRedo()) {
        page = small.redo();
    }
    EXPECT_EQ(page, (Page{100, 0}));
}

}  // namespace
}  // namespace editor
