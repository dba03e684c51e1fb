#include "midi/ZQMIDIUtils.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace midi {
namespace {

struct Number {
    int value;
    [[nodiscard]] bool isEven() const { return value % 2 == 0; }
};
struct Derived : Number {};

TEST(FilteredList, HoldsTheElementsThatSayYesInOrder) {
    std::vector<std::unique_ptr<Derived>> list;
    for (const int value : {4, 1, 2, 3, 2}) {
        list.push_back(std::make_unique<Derived>(Derived{{value}}));
    }
    const std::vector<Derived*> even = filteredArrayUsingSelector(list, &Number::isEven);
    EXPECT_THAT(even, ::testing::ElementsAre(list[0].get(), list[2].get(), list[4].get()));
}

TEST(FilteredList, OfAnEmptyListIsEmpty) {
    EXPECT_TRUE(filteredArrayUsingSelector(std::vector<Number*>{}, &Number::isEven).empty());
}

TEST(FilteredList, TakesPlainPointersToo) {
    Number one{1};
    Number two{2};
    EXPECT_THAT(filteredArrayUsingSelector(std::vector<Number*>{&one, &two}, &Number::isEven),
                ::testing::ElementsAre(&two));
}

}  // namespace
}  // namespace midi
